#pragma once

#include <cstdint>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// Places boxes in rows, as text is set: for those that nothing ties together, and where there are
/// too many for a better way.
class GridLayout {
 public:
  /// The upper left corners, in the order of the boxes, from (0, 0). The whole is about as wide as
  /// a screen would like it to be.
  static std::vector<POINT> Places(const std::vector<SIZE>& sizes, std::int32_t gap);
};

/// The lower right corner of boxes at their places.
SIZE ExtentOf(const std::vector<SIZE>& sizes, const std::vector<POINT>& places);

}  // namespace morvane
