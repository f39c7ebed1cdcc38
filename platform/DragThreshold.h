#pragma once

#include <cstdint>
#include <cstdlib>

#include "drawing/Geometry.h"
#include "platform/CWnd.h"

namespace morvane {

/// Tells a drag from a click: a press is a click until the pointer has gone as far from it as the
/// desktop asks for a drag.
class DragThreshold {
 public:
  DragThreshold(const CWnd& window, POINT press)
      : press(press), distance(window.GetDragDistance()) {}

  /// The pointer is at a point. True from the first one on that makes a drag.
  bool Passes(POINT p) {
    passed =
        passed ||
        std::abs(std::int64_t{p.x} - press.x) + std::abs(std::int64_t{p.y} - press.y) >= distance;
    return passed;
  }
  bool IsPassed() const { return passed; }

 private:
  POINT press;
  std::int64_t distance;
  bool passed = false;
};

}  // namespace morvane
