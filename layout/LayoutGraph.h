#pragma once

#include <cstdint>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// A box that is to be placed, model units.
struct LayoutBox {
  enum class Kind { Plain, Start, End };

  static constexpr int kOutermost = -1;

  int holder = kOutermost;  ///< the box that it stands in
  SIZE size;                ///< the least one; what holds others grows around them
  std::int32_t head = 0;    ///< room above what stands inside
  Kind kind = Kind::Plain;
};

/// Something runs from a box to a box and carries a label.
struct LayoutEdge {
  int from = 0;
  int to = 0;
  SIZE label;  ///< no size: none
};

/// Boxes in boxes and what runs between them, by their index.
struct LayoutGraph {
  std::vector<LayoutBox> boxes;
  std::vector<LayoutEdge> edges;
};

/// Boxes that stand beside each other, on one level.
struct LevelGraph {
  std::vector<SIZE> sizes;
  std::vector<LayoutEdge> edges;
};

/// Where the boxes of a level stand.
struct Placement {
  std::vector<POINT> corners;  ///< the upper left ones; none is left of or above (0, 0)
  SIZE size;                   ///< of the whole, with the labels
};

}  // namespace morvane
