#include "connectors/AnchorChoice.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <map>
#include <utility>

#include "connectors/ChartRouter.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "model/ShapeGeometry.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

// What a route costs, in model units of its length.
constexpr std::int64_t kBend = 8;
constexpr std::int64_t kCrossing = 12;
constexpr std::int64_t kThroughBox = 200;
constexpr std::int64_t kSharedWay = 60;
constexpr std::int64_t kSharedAnchor = 400;
/// A turn back at the very start or end.
constexpr std::int64_t kTurn = 24;
/// An end on a side that doesn't face the other state, which lies plainly above, below or beside.
constexpr std::int64_t kAside = 12;
/// An end beside the middle of its side.
constexpr std::int64_t kOffMiddle = 2;
/// So many pairs of anchors for each two sides are tried.
constexpr std::size_t kTriedOfSides = 2;

struct Candidate {
  AnchorPair anchors;
  RouteEnd from;
  RouteEnd to;
  std::int64_t cost = 0;
};

std::int64_t Distance(POINT a, POINT b) {
  return std::abs(std::int64_t{a.x} - b.x) + std::abs(std::int64_t{a.y} - b.y);
}

bool IsAcross(std::uint16_t side) { return side == SIDE_LEFT || side == SIDE_RIGHT; }

/// Whether something ends at a point of a state already.
template <class Transitions>
bool EndsAt(const Transitions& transitions, POINT p, bool atSource) {
  return std::ranges::any_of(transitions, [&](const StateTransition* each) {
    const auto* transition = dynamic_cast<const Transition*>(each);
    if (transition == nullptr) return false;
    return (atSource ? transition->SourceEnd() : transition->TargetEnd()).anchor == p;
  });
}

bool IsTaken(const State& state, POINT p) {
  const auto* source = dynamic_cast<const StartableState*>(&state);
  const auto* target = dynamic_cast<const EndableState*>(&state);
  return (source != nullptr && EndsAt(source->GetOutgoing(), p, true)) ||
         (target != nullptr && EndsAt(target->GetIncoming(), p, false));
}

/// What the route between two anchors costs at least, by their places and sides alone.
std::int64_t Estimate(const RouteEnd& from, const RouteEnd& to) {
  const POINT start = StepPoint(from.anchor, from.side);
  const POINT end = StepPoint(to.anchor, to.side);
  std::int64_t cost = Distance(start, end);
  // A stub that leads away from the other end has to turn.
  if (Distance(start, end) > Distance(from.anchor, end)) cost += kTurn;
  if (Distance(start, end) > Distance(start, to.anchor)) cost += kTurn;
  const bool straight = from.side != to.side && IsAcross(from.side) == IsAcross(to.side) &&
                        (IsAcross(from.side) ? start.y == end.y : start.x == end.x);
  if (!straight) cost += IsAcross(from.side) == IsAcross(to.side) ? 2 * kBend : kBend;
  return cost;
}

/// The side of a rectangle that faces another one; 0 if that doesn't lie plainly in one direction.
std::uint16_t FacingSide(const RECT& from, const RECT& to) {
  const std::int64_t dx = std::int64_t{CentreOf(to).x} - CentreOf(from).x;
  const std::int64_t dy = std::int64_t{CentreOf(to).y} - CentreOf(from).y;
  if (std::abs(dx) > 2 * std::abs(dy)) return dx > 0 ? SIDE_RIGHT : SIDE_LEFT;
  if (std::abs(dy) > 2 * std::abs(dx)) return dy > 0 ? SIDE_BOTTOM : SIDE_TOP;
  return 0;
}

/// What it costs to start or end at an anchor of a state.
std::int64_t CostOfEnd(const State& state, const AnchorMap::Anchor& anchor, std::uint16_t facing) {
  const std::int64_t aside = facing != 0 && anchor.key.side != facing ? kAside : 0;
  const POINT off = anchor.point - CentreOf(state.GetBounds());
  const bool isMiddle = std::min(std::abs(off.x), std::abs(off.y)) <= 1;
  return aside + (isMiddle ? 0 : kOffMiddle) + (IsTaken(state, anchor.point) ? kSharedAnchor : 0);
}

/// The pairs of anchors that are worth a route.
std::vector<Candidate> Candidates(StartableState& from, EndableState& to) {
  const State* source = &from;
  const State* target = &to;
  std::map<std::pair<std::uint16_t, std::uint16_t>, std::vector<Candidate>> bySides;
  const std::uint16_t leaves = FacingSide(source->GetBounds(), target->GetBounds());
  const std::uint16_t enters = FacingSide(target->GetBounds(), source->GetBounds());
  for (const AnchorMap::Anchor& start : from.GetAnchors()) {
    const std::int64_t ofStart = CostOfEnd(from, start, leaves);
    for (const AnchorMap::Anchor& end : to.GetAnchors()) {
      if (source == target && start.key == end.key) continue;
      Candidate made{{{&from, start.key}, {&to, end.key}},
                     {start.point, start.key.side},
                     {end.point, end.key.side}};
      made.cost = ofStart + CostOfEnd(to, end, enters);
      bySides[{start.key.side, end.key.side}].push_back(made);
    }
  }
  std::vector<Candidate> tried;
  for (auto& [sides, list] : bySides) {
    std::ranges::stable_sort(
        list, {}, [](const Candidate& each) { return each.cost + Estimate(each.from, each.to); });
    const std::size_t count = std::min(list.size(), kTriedOfSides);
    tried.insert(tried.end(), list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return tried;
}

/// What the routes and boxes that are there already cost a new route.
class Neighbours {
 public:
  Neighbours(const ModelMgr& model, const Shape* from, const Shape* to,
             const std::unordered_set<const Shape*>& unlaid) {
    for (const Shape* shape : model.Objects()) {
      if (unlaid.contains(shape)) continue;
      if (const auto* transition = dynamic_cast<const Transition*>(shape)) {
        for (const ChainRecord& link : transition->Route()) links.push_back(link);
      } else if (shape != from && shape != to && dynamic_cast<const Connectable*>(shape)) {
        boxes.push_back(shape->GetBounds());
      }
    }
  }

  std::int64_t CostOf(const std::vector<ChainRecord>& route) const {
    std::int64_t cost = static_cast<std::int64_t>(route.size()) * kBend;
    for (const ChainRecord& link : route) cost += Distance(link.start, link.end) + CostOf(link);
    const POINT start = route.front().start;
    const POINT end = route.back().end;
    for (const RECT& box : boxes) {
      // A state that holds an end has to be gone through.
      if (PieceTouches(start, start, box) || PieceTouches(end, end, box)) continue;
      cost += kThroughBox * std::ranges::count_if(route, [&box](const ChainRecord& link) {
                return PieceTouches(link.start, link.end, box);
              });
    }
    return cost;
  }

 private:
  std::int64_t CostOf(const ChainRecord& link) const {
    const auto boxOf = [](const ChainRecord& each) {
      return NormalizeRect({each.start.x, each.start.y, each.end.x, each.end.y});
    };
    std::int64_t cost = 0;
    for (const ChainRecord& other : links) {
      if (!PieceTouches(link.start, link.end, boxOf(other))) continue;
      const bool along = (link.start.x == link.end.x) == (other.start.x == other.end.x);
      cost += along ? kSharedWay : kCrossing;
    }
    return cost;
  }

  std::vector<ChainRecord> links;
  std::vector<RECT> boxes;
};

}  // namespace

AnchorPair BestAnchors(const ModelMgr& model, StartableState& from, EndableState& to,
                       const std::unordered_set<const Shape*>& unlaid) {
  const ChartRouter router(model);
  const Neighbours neighbours(model, &from, &to, unlaid);
  AnchorPair best;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (const Candidate& each : Candidates(from, to)) {
    const std::int64_t cost =
        each.cost + neighbours.CostOf(router.RouteBetween(each.from, each.to, &from, &to));
    if (cost >= least) continue;
    least = cost;
    best = each.anchors;
  }
  return best;
}

AnchorPair NearestAnchors(Connectable& from, Connectable& to) {
  AnchorPair best;
  double least = std::numeric_limits<double>::max();
  for (const AnchorMap::Anchor& start : from.GetAnchors()) {
    for (const AnchorMap::Anchor& end : to.GetAnchors()) {
      const double dx = static_cast<double>(start.point.x) - end.point.x;
      const double dy = static_cast<double>(start.point.y) - end.point.y;
      if (dx * dx + dy * dy >= least) continue;
      least = dx * dx + dy * dy;
      best = {{&from, start.key}, {&to, end.key}};
    }
  }
  return best;
}

}  // namespace morvane
