#pragma once

#include <vector>

#include "layout/LayoutGraph.h"

namespace morvane {

/// Places boxes that stand beside each other: what hangs together by ranks, across or down as it
/// comes nearer to the shape of a screen, and such groups in rows.
class LevelLayout {
 public:
  /// Boxes that lead to others come best before them in the list.
  static Placement Lay(const LevelGraph& graph);
};

}  // namespace morvane
