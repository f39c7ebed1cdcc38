#include "surface/RouteLayer.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "connectors/ChartRouter.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

/// With more objects each transition takes the anchors that face the other state, and looks only at
/// what is near.
constexpr std::size_t kMostObjects = 400;
/// So far around the ends of a route it is looked for what stands in its way, model units.
constexpr std::int32_t kReach = 20;
/// With more in its way a route keeps the shape that it has between its anchors.
constexpr std::size_t kMostObstacles = 40;
/// An anchor that is in use costs so much more of a way, model units.
constexpr std::int64_t kUsed = 40;

const Shape* FromOf(const WantedRoute& route) { return static_cast<const State*>(route.from); }
const Shape* ToOf(const WantedRoute& route) { return static_cast<const State*>(route.to); }

std::int64_t Distance(POINT a, POINT b) {
  return std::abs(std::int64_t{a.x} - b.x) + std::abs(std::int64_t{a.y} - b.y);
}

std::int64_t LengthOf(const WantedRoute& route) {
  return Distance(CentreOf(FromOf(route)->GetBounds()), CentreOf(ToOf(route)->GetBounds()));
}

/// How many transitions use an anchor of a state already.
template <class Transitions>
std::int64_t UsesOf(const Transitions& transitions, POINT anchor, bool atSource) {
  return std::ranges::count_if(transitions, [&](const StateTransition* each) {
    const auto* transition = dynamic_cast<const Transition*>(each);
    if (transition == nullptr) return false;
    return (atSource ? transition->SourceEnd() : transition->TargetEnd()).anchor == anchor;
  });
}

RECT Union(const RECT& a, const RECT& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}

bool Meet(const RECT& a, const RECT& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

}  // namespace

void RouteLayer::Lay(std::vector<WantedRoute> routes) {
  isLarge = model.Objects().size() > kMostObjects;
  std::ranges::stable_sort(routes, {}, LengthOf);
  for (const WantedRoute& route : routes) unlaid.insert(route.transition);
  for (const WantedRoute& route : routes) LayOne(route);
}

void RouteLayer::LayOne(const WantedRoute& route) {
  const AnchorPair anchors =
      isLarge ? FacingAnchors(route) : BestAnchors(model, *route.from, *route.to, unlaid);
  if (!anchors.from || !anchors.to) return;
  route.transition->AttachSource(route.from, anchors.from.key);
  route.transition->AttachTarget(route.to, anchors.to.key);
  unlaid.erase(route.transition);
  if (!isLarge) return route.transition->Reroute(ChartRouter(model));
  const std::vector<const Shape*> obstacles = ObstaclesOf(route);
  if (obstacles.size() <= kMostObstacles) route.transition->Reroute(ChartRouter(obstacles));
}

/// The nearest anchors, those that are free before others.
AnchorPair RouteLayer::FacingAnchors(const WantedRoute& route) const {
  AnchorPair best;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (const AnchorMap::Anchor& start : route.from->GetAnchors()) {
    const std::int64_t used = UsesOf(route.from->GetOutgoing(), start.point, true);
    for (const AnchorMap::Anchor& end : route.to->GetAnchors()) {
      if (FromOf(route) == ToOf(route) && start.key.side == end.key.side) continue;
      const std::int64_t cost = Distance(start.point, end.point) +
                                kUsed * (used + UsesOf(route.to->GetIncoming(), end.point, false));
      if (cost >= least) continue;
      least = cost;
      best = {{route.from, start.key}, {route.to, end.key}};
    }
  }
  return best;
}

/// The ends, and what stands beside them or beside what holds them, up to where they meet.
std::vector<const Shape*> RouteLayer::ObstaclesOf(const WantedRoute& route) const {
  const RECT ends = Union(FromOf(route)->GetBounds(), ToOf(route)->GetBounds());
  const RECT near = InflateRect(ends, kReach);
  std::vector<const Shape*> obstacles{FromOf(route)};
  if (FromOf(route) != ToOf(route)) obstacles.push_back(ToOf(route));
  std::unordered_set<const Shape*> levels;
  for (const Shape* end : {FromOf(route), ToOf(route)}) {
    for (const Shape* at = end; at != nullptr;) {
      const auto holder = nest.holders.find(at);
      at = holder != nest.holders.end() ? holder->second : nullptr;
      if (!levels.insert(at).second) break;
      const auto level = nest.contents.find(at);
      if (level == nest.contents.end()) continue;
      for (const Shape* box : level->second) {
        const bool isEnd = box == FromOf(route) || box == ToOf(route);
        if (!isEnd && Meet(near, box->GetBounds())) obstacles.push_back(box);
        if (obstacles.size() > kMostObstacles) return obstacles;
      }
    }
  }
  return obstacles;
}

}  // namespace morvane
