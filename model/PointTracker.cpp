#include "model/PointTracker.h"

#include <array>

namespace morvane {

bool PointTracker::Finish(POINT& /*point*/, CDC* /*dc*/) { return true; }

void PointTracker::Move(POINT& point, CDC* dc) {
  movingPoint = point;
  if (rubberLine) DrawLines(*dc, std::array{fixedPoint, movingPoint});
}

}  // namespace morvane
