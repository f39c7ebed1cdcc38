#pragma once

#include <unordered_set>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class Mesg;
class ModelMgr;
class Shape;
class Transition;

/// Puts messages beside the routes of their transitions, where they cover as little as can be.
class MessagePlaces {
 public:
  /// Those of `moved` don't stand anywhere yet, and `composites` hold others. The model has to
  /// outlive it.
  MessagePlaces(const ModelMgr& model, const std::unordered_set<const Shape*>& moved,
                const std::unordered_set<const Shape*>& composites);

  /// Puts the message of a transition beside its route.
  void Put(Transition& transition);

 private:
  void LookAt(const Shape& shape, bool holdsOthers);
  SIZE ShownSize(const Mesg& message) const;
  std::int64_t CostOf(const RECT& place) const;

  const ModelMgr& model;
  std::vector<RECT> full;   ///< states that hold no others, notes, and the texts of composites
  std::vector<RECT> outer;  ///< composites, inside which there is room
  std::vector<RECT> messages;
  std::vector<RECT> links;
};

}  // namespace morvane
