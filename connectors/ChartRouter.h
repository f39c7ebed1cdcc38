#pragma once

#include <vector>

#include "connectors/ChainRecord.h"
#include "drawing/Geometry.h"

namespace morvane {

class LinkChain;
class ModelMgr;
class Shape;
class Transition;
struct RouteEnd;

/// Lays routes of transitions through a chart as it stands: round the states and notes.
class ChartRouter {
 public:
  explicit ChartRouter(const ModelMgr& model);
  /// Round these shapes alone.
  explicit ChartRouter(const std::vector<const Shape*>& obstacles);

  /// A new route between the anchors of a transition as the links of a chain. An end that is free,
  /// or whose key names no anchor, stays where it is.
  std::vector<ChainRecord> RouteOf(const Transition& transition) const;
  /// The same for a transition that there may be, between two shapes or none.
  std::vector<ChainRecord> RouteBetween(const RouteEnd& from, const RouteEnd& to,
                                        const Shape* source, const Shape* target) const;

 private:
  struct Box {
    const Shape* shape;
    RECT rect;
  };
  std::vector<Box> boxes;
};

/// A route that a shape at one of its ends stands in the way of, though the other end lies outside.
bool RunsThroughEnds(const LinkChain& chain, const Shape* source, const Shape* target);

}  // namespace morvane
