#pragma once

#include <vector>

#include "connectors/ChainRecord.h"
#include "drawing/Geometry.h"

namespace morvane {

class ModelMgr;
class Shape;
class Transition;

/// Lays routes of transitions through a chart as it stands: round the states and notes.
class ChartRouter {
 public:
  explicit ChartRouter(const ModelMgr& model);

  /// A new route between the anchors of a transition as the links of a chain. An end that is free,
  /// or whose key names no anchor, stays where it is.
  std::vector<ChainRecord> RouteOf(const Transition& transition) const;

 private:
  struct Box {
    const Shape* shape;
    RECT rect;
  };
  std::vector<Box> boxes;
};

}  // namespace morvane
