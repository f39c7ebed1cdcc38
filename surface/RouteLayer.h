#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "connectors/AnchorChoice.h"

namespace morvane {

class ModelMgr;
class Shape;
class Transition;

/// What a box of a chart stands in, and what else stands there.
struct ChartNest {
  std::unordered_map<const Shape*, const Shape*> holders;  ///< null for the outermost ones
  std::unordered_map<const Shape*, std::vector<const Shape*>> contents;
};

/// Two states that a transition is to run between.
struct WantedRoute {
  Transition* transition = nullptr;
  StartableState* from = nullptr;
  EndableState* to = nullptr;
};

/// Ties transitions to their states by anchors that suit, and lays their routes.
class RouteLayer {
 public:
  /// The nest tells what can stand in the way. Both have to outlive it.
  RouteLayer(ModelMgr& model, const ChartNest& nest) : model(model), nest(nest) {}

  /// Short ones first, so that long ones go round them.
  void Lay(std::vector<WantedRoute> routes);

 private:
  void LayOne(const WantedRoute& route);
  AnchorPair FacingAnchors(const WantedRoute& route) const;
  std::vector<const Shape*> ObstaclesOf(const WantedRoute& route) const;

  ModelMgr& model;
  const ChartNest& nest;
  std::unordered_set<const Shape*> unlaid;
  bool isLarge = false;  ///< too large to try all anchors round all states
};

}  // namespace morvane
