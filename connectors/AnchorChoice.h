#pragma once

#include <unordered_set>

#include "model/AnchorOffer.h"

namespace morvane {

class Connectable;
class EndableState;
class ModelMgr;
class Shape;
class StartableState;

/// Two anchors that something is to run between.
struct AnchorPair {
  AnchorOffer from;
  AnchorOffer to;
};

/// The anchors of two states between which a transition runs best: short, with few bends, clear of
/// other states and routes, and not where another one ends already. Both may be one state. None is
/// offered where the states have no two anchors. Routes that are `unlaid` still lie anywhere, and
/// are in nobody's way.
AnchorPair BestAnchors(const ModelMgr& model, StartableState& from, EndableState& to,
                       const std::unordered_set<const Shape*>& unlaid = {});
/// The anchors of two shapes that lie nearest to each other.
AnchorPair NearestAnchors(Connectable& from, Connectable& to);

}  // namespace morvane
