#include "model/LineTracker.h"

#include <array>

namespace morvane {

bool LineTracker::Finish(POINT& /*point*/, CDC* /*dc*/) {
  return movedStart != start || movedEnd != end;
}

void LineTracker::Move(POINT& point, CDC* dc) {
  MoveTo(point);
  DrawLines(*dc, std::array{start, movedStart, movedEnd, end});
}

void LineTracker::MoveTo(POINT point) {
  if (start.x != end.x) {
    movedStart = {start.x, point.y};
    movedEnd = {end.x, point.y};
  } else {
    movedStart = {point.x, start.y};
    movedEnd = {point.x, end.y};
  }
}

}  // namespace morvane
