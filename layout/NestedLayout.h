#pragma once

#include <vector>

#include "layout/LayoutGraph.h"

namespace morvane {

/// Places boxes in boxes, level by level from the innermost one: what stands inside another one
/// stands strictly inside, below its head, and those of a level don't touch. An edge between
/// levels counts where both ends stand side by side, as one between the boxes that hold them.
class NestedLayout {
 public:
  /// The rectangle of each box. The outermost ones stand from (0, 0).
  static std::vector<RECT> Rects(const LayoutGraph& graph);
};

}  // namespace morvane
