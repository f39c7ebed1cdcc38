#include "model/PointTracker.h"

#include <array>

bool PointTracker::Finish(POINT& /*point*/, CDC* dc) {
  Cancel(dc);
  return true;
}

void PointTracker::Move(POINT& point, CDC* dc) {
  Cancel(dc);
  movingPoint = point;
  if (!rubberLine) return;
  ToggleLine(*dc);
  shown = true;
}

void PointTracker::Cancel(CDC* dc) {
  if (shown) ToggleLine(*dc);
  shown = false;
}

void PointTracker::ToggleLine(CDC& dc) const {
  const std::array line{fixedPoint, movingPoint};
  Toggle(dc, line.data(), static_cast<int>(line.size()));
}
