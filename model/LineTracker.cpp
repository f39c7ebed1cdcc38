#include "model/LineTracker.h"

#include <array>

bool LineTracker::Finish(POINT& point, CDC* dc) {
  Cancel(dc);
  MoveTo(point);
  return movedStart != start || movedEnd != end;
}

void LineTracker::Move(POINT& point, CDC* dc) {
  Cancel(dc);
  MoveTo(point);
  TogglePicture(*dc);
  shown = true;
}

void LineTracker::Cancel(CDC* dc) {
  if (shown) TogglePicture(*dc);
  shown = false;
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

void LineTracker::TogglePicture(CDC& dc) const {
  const std::array picture{start, movedStart, movedEnd, end};
  Toggle(dc, picture.data(), static_cast<int>(picture.size()));
}
