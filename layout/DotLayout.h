#pragma once

#include <optional>
#include <vector>

#include "layout/LayoutGraph.h"

namespace morvane {

/// Places boxes in ranks, so that most edges run in one direction, by the engine "dot" of Graphviz.
class DotLayout {
 public:
  enum class Flow { Down, Across };

  /// The places of the boxes, with room for labels around them. Nothing where the engine fails.
  /// The engine keeps state for the process: only one thread at a time may call this.
  static std::optional<Placement> Lay(const LevelGraph& graph, Flow flow);
};

}  // namespace morvane
