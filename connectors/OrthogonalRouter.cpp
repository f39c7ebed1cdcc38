#include "connectors/OrthogonalRouter.h"

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

#include <queue>

#include "model/AnchorKey.h"
#include "model/ShapeGeometry.h"

namespace morvane {

namespace {

using Cost = std::int64_t;

/// A bend is worth a detour of so many model units.
constexpr Cost kBend = 20;
/// The price of a model unit through a shape, and close to one.
constexpr Cost kThroughOwn = 10'000'000'000;
constexpr Cost kThroughOther = 100'000;
constexpr Cost kCloseBy = 2;
/// More than this of a piece costs no more, so that no sum gets too large.
constexpr Cost kMostPriced = 1'000'000;
/// What a route keeps away from shapes where there is room, model units.
constexpr std::int32_t kClearance = 3;
/// So much is spent on going round what is in the way: looks at crossings of lines, of which making
/// so many counts for one, and shapes. A route goes through the rest.
constexpr std::size_t kMostWork = 3'500;
constexpr std::size_t kNodesPerLook = 8;
constexpr std::size_t kMostObstacles = 60;
/// With more shapes in the way any good way will do instead of the best.
constexpr std::size_t kFew = 8;
constexpr Cost kUnreached = std::numeric_limits<Cost>::max();

/// Directions, in an order in which the opposite is two further on.
enum Direction : std::uint8_t { UP, RIGHT, DOWN, LEFT, ANY };
constexpr std::size_t kDirections = 4;

Direction Outward(std::uint16_t side) {
  switch (side) {
    case SIDE_TOP: return UP;
    case SIDE_RIGHT: return RIGHT;
    case SIDE_BOTTOM: return DOWN;
    case SIDE_LEFT: return LEFT;
    default: return ANY;
  }
}

Direction Opposite(Direction d) {
  return d == ANY ? ANY : static_cast<Direction>((d + 2) % kDirections);
}

struct Obstacle {
  RECT rect;  ///< edges included
  Cost price;

  bool IsOwn() const { return price == kThroughOwn; }
};

/// A line on which a route may run. Between two own shapes it is best midway.
struct GridLine {
  std::int32_t at;
  Cost bend = kBend;  ///< the price of a bend on it

  friend auto operator<=>(const GridLine&, const GridLine&) = default;
};
using GridLines = std::vector<GridLine>;

/// A shape as an obstacle on the way between two points. One on whose edge such a point lies leaves
/// its edges free; one around such a point is none.
void AddObstacle(std::vector<Obstacle>& obstacles, const RECT& rect, Cost price, POINT a, POINT b) {
  RECT r = rect;
  for (const POINT p : {a, b}) {
    if (PieceTouches(p, p, r)) r = InflateRect(r, -1);
    if (r.left > r.right || r.top > r.bottom || PieceTouches(p, p, r)) return;
  }
  obstacles.push_back({r, price});
}

/// A route can have to squeeze in between two rectangles.
bool AreNeighbours(const RECT& a, const RECT& b) {
  const RECT r = InflateRect(a, 2 * kClearance);
  return PieceTouches(TopLeft(b), BottomRight(b), r);
}

Cost Length(const GridLines& lines, std::size_t i) { return Cost{lines[i + 1].at} - lines[i].at; }

std::size_t IndexOf(const GridLines& lines, std::int32_t at) {
  return static_cast<std::size_t>(std::ranges::lower_bound(lines, at, {}, &GridLine::at) -
                                  lines.begin());
}

/// The lines on which routes run, the pieces between their crossings with their prices, and the
/// search for the cheapest way from crossing to crossing.
class RouteGrid {
 public:
  /// The goal is reached in the direction `arrive`.
  RouteGrid(POINT start, POINT goal, Direction arrive, std::span<const Obstacle> obstacles)
      : start(start), goal(goal), arrive(arrive), obstacles(obstacles) {
    CollectLines(xs, start.x, goal.x, &RECT::left, &RECT::right);
    CollectLines(ys, start.y, goal.y, &RECT::top, &RECT::bottom);
    across.resize(xs.size() * ys.size());
    down.resize(xs.size() * ys.size());
    PricePieces();
  }

  /// The corners of the cheapest way, which leaves in a direction. Takes what it does from `work`;
  /// empty if that wasn't enough.
  std::vector<POINT> Search(Direction leave, std::size_t& work);

 private:
  /// A crossing, as it is reached from one direction.
  using State = std::size_t;
  /// What is open: the least price of a whole way over it, the least of the rest, and the state.
  /// Of equally good ones that is looked at first which is nearest to the goal.
  using Entry = std::tuple<Cost, Cost, State>;

  void CollectLines(GridLines& lines, std::int32_t a, std::int32_t b, std::int32_t RECT::*low,
                    std::int32_t RECT::*high) const;
  void PricePieces();
  void PriceRange(const RECT& r, Cost price);
  std::size_t NodeAt(POINT p) const;
  POINT PointOf(std::size_t node) const {
    return {xs[node % xs.size()].at, ys[node / xs.size()].at};
  }
  Cost BendAt(std::size_t node) const {
    return std::min(xs[node % xs.size()].bend, ys[node / xs.size()].bend);
  }
  /// The neighbour in a direction and the price of the way there; false at the rim.
  bool Step(std::size_t node, Direction d, std::size_t& next, Cost& price) const;
  Cost LeastCost(State state) const;
  void Relax(State state, State from, Cost cost);
  std::vector<POINT> Way(State last) const;

  POINT start;
  POINT goal;
  Direction arrive;
  std::span<const Obstacle> obstacles;
  GridLines xs;
  GridLines ys;
  std::vector<Cost> across;  ///< the piece to the right of each crossing, row by row
  std::vector<Cost> down;    ///< the piece below it
  std::vector<Cost> costs;
  std::vector<State> before;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
};

/// The lines through both ends, beside each obstacle, midway between two where there is no room for
/// more, and beyond all, where a route can always turn.
void RouteGrid::CollectLines(GridLines& lines, std::int32_t a, std::int32_t b,
                             std::int32_t RECT::*low, std::int32_t RECT::*high) const {
  const std::int32_t least = std::min({0, a, b});
  lines = {{a}, {b}};
  for (const Obstacle& obstacle : obstacles) {
    const std::int32_t from = obstacle.rect.*low;
    const std::int32_t to = obstacle.rect.*high;
    const std::int32_t beside = std::max(SubSat(from, kClearance), least);
    if (beside < from) lines.push_back({beside});
    lines.push_back({std::max(AddSat(to, kClearance), least)});
    for (const Obstacle& other : obstacles) {
      const Cost gap = Cost{other.rect.*low} - to;
      const bool ends = obstacle.IsOwn() && other.IsOwn();
      if (gap < 2 || (gap >= Cost{2} * kClearance && !ends)) continue;
      if (!ends && !AreNeighbours(obstacle.rect, other.rect)) continue;
      lines.push_back({std::max(Middle(to, other.rect.*low), least), ends ? kBend - 1 : kBend});
    }
  }
  std::ranges::sort(lines);
  lines.push_back({AddSat(lines.back().at, kClearance)});
  lines.push_back({std::max(SubSat(lines.front().at, kClearance), least)});
  std::ranges::sort(lines);
  // clang 14 can't read what the standard library's own ranges give here.
  const auto isSame = [](const GridLine& a, const GridLine& b) { return a.at == b.at; };
  lines.erase(std::unique(lines.begin(), lines.end(), isSame), lines.end());
}

void RouteGrid::PricePieces() {
  for (std::size_t y = 0; y < ys.size(); ++y) {
    for (std::size_t x = 0; x < xs.size(); ++x) {
      const std::size_t node = y * xs.size() + x;
      across[node] = x + 1 < xs.size() ? Length(xs, x) : kUnreached;
      down[node] = y + 1 < ys.size() ? Length(ys, y) : kUnreached;
    }
  }
  for (const Obstacle& obstacle : obstacles) {
    PriceRange(obstacle.rect, obstacle.price);
    PriceRange(InflateRect(obstacle.rect, kClearance - 1), kCloseBy);
  }
}

/// Makes the pieces that touch a rectangle dearer, by what they have in common with it.
void RouteGrid::PriceRange(const RECT& r, Cost price) {
  const auto common = [](const GridLines& lines, std::size_t i, std::int32_t low,
                         std::int32_t high) {
    const Cost from = std::max(lines[i].at, low);
    const Cost to = std::min(lines[i + 1].at, high);
    return std::min(to - from + 1, kMostPriced);
  };
  // The lines that run through the rectangle, and with them the one before.
  const std::size_t left = IndexOf(xs, r.left);
  const std::size_t right = IndexOf(xs, AddSat(r.right, 1));
  const std::size_t top = IndexOf(ys, r.top);
  const std::size_t bottom = IndexOf(ys, AddSat(r.bottom, 1));
  const auto before = [](std::size_t i) { return i > 0 ? i - 1 : 0; };
  for (std::size_t y = top; y < bottom; ++y) {
    for (std::size_t x = before(left); x < std::min(right, xs.size() - 1); ++x) {
      const Cost part = common(xs, x, r.left, r.right);
      if (part > 0) across[y * xs.size() + x] += price * part;
    }
  }
  for (std::size_t y = before(top); y < std::min(bottom, ys.size() - 1); ++y) {
    const Cost part = common(ys, y, r.top, r.bottom);
    if (part <= 0) continue;
    for (std::size_t x = left; x < right; ++x) down[y * xs.size() + x] += price * part;
  }
}

std::size_t RouteGrid::NodeAt(POINT p) const {
  return IndexOf(ys, p.y) * xs.size() + IndexOf(xs, p.x);
}

bool RouteGrid::Step(std::size_t node, Direction d, std::size_t& next, Cost& price) const {
  const std::size_t x = node % xs.size();
  const std::size_t y = node / xs.size();
  switch (d) {
    case UP:
      if (y == 0) return false;
      next = node - xs.size();
      price = down[next];
      return true;
    case RIGHT:
      if (x + 1 == xs.size()) return false;
      next = node + 1;
      price = across[node];
      return true;
    case DOWN:
      if (y + 1 == ys.size()) return false;
      next = node + xs.size();
      price = down[node];
      return true;
    default:
      if (x == 0) return false;
      next = node - 1;
      price = across[next];
      return true;
  }
}

/// What the way to the goal costs at least, with nothing in between; where much is in between, more
/// than that, so that the search heads for the goal.
Cost RouteGrid::LeastCost(State state) const {
  const POINT p = PointOf(state / kDirections);
  const auto heading = static_cast<Direction>(state % kDirections);
  const Cost dx = Cost{goal.x} - p.x;
  const Cost dy = Cost{goal.y} - p.y;
  const bool level = heading == LEFT || heading == RIGHT;
  const Cost ahead = heading == LEFT ? -dx : heading == RIGHT ? dx : heading == UP ? -dy : dy;
  const bool straight = (level ? dy : dx) == 0 && ahead >= 0;
  const bool sameAxis = arrive == heading || arrive == Opposite(heading);
  Cost bends = sameAxis ? 2 : 1;
  if (straight && (arrive == ANY || arrive == heading)) bends = 0;
  const Cost least = std::abs(dx) + std::abs(dy) + bends * (kBend - 1);
  return obstacles.size() > kFew ? least + least / 2 : least;
}

void RouteGrid::Relax(State state, State from, Cost cost) {
  if (cost >= costs[state]) return;
  costs[state] = cost;
  before[state] = from;
  const Cost rest = LeastCost(state);
  open.push({cost + rest, rest, state});
}

/// A* that turns straight back neither at the start nor at the goal.
std::vector<POINT> RouteGrid::Search(Direction leave, std::size_t& work) {
  const State last = xs.size() * ys.size() * kDirections;  // the goal with its last turn
  const State none = last + 1;
  costs.assign(last + 1, kUnreached);
  before.assign(last + 1, none);
  const std::size_t first = NodeAt(start);
  const std::size_t goalNode = NodeAt(goal);
  for (State d = 0; d < kDirections; ++d) {
    if (leave == ANY || d == leave) Relax(first * kDirections + d, none, 0);
  }
  work -= std::min(work, xs.size() * ys.size() / kNodesPerLook);
  for (; !open.empty() && work > 0; --work) {
    const auto [estimate, rest, state] = open.top();
    open.pop();
    if (state == last) return Way(before[last]);
    const std::size_t node = state / kDirections;
    const auto heading = static_cast<Direction>(state % kDirections);
    const Cost cost = costs[state];
    if (estimate > cost + rest) continue;
    if (node == goalNode && heading != Opposite(arrive)) {
      const Cost total = cost + (arrive == ANY || heading == arrive ? 0 : BendAt(node));
      if (total < costs[last]) {
        costs[last] = total;
        before[last] = state;
        open.push({total, 0, last});
      }
    }
    for (const Direction d : {UP, RIGHT, DOWN, LEFT}) {
      std::size_t next = 0;
      Cost price = 0;
      if (d == Opposite(heading) || !Step(node, d, next, price)) continue;
      Relax(next * kDirections + d, state, cost + price + (d == heading ? 0 : BendAt(node)));
    }
  }
  return {};
}

/// The corners on the way to a state.
std::vector<POINT> RouteGrid::Way(State last) const {
  std::vector<POINT> points;
  for (State state = last; state < costs.size(); state = before[state]) {
    const POINT p = PointOf(state / kDirections);
    const std::size_t n = points.size();
    const auto inLine = [&](std::int32_t POINT::*c) {
      return points[n - 1].*c == p.*c && points[n - 2].*c == p.*c;
    };
    if (n > 1 && (inLine(&POINT::x) || inLine(&POINT::y))) points.pop_back();
    points.push_back(p);
  }
  std::ranges::reverse(points);
  return points;
}

bool RouteTouches(const std::vector<POINT>& route, const RECT& r) {
  for (std::size_t i = 0; i + 1 < route.size(); ++i) {
    if (PieceTouches(route[i], route[i + 1], r)) return true;
  }
  return false;
}

}  // namespace

bool PieceTouches(POINT start, POINT end, const RECT& r) {
  return std::min(start.x, end.x) <= r.right && std::max(start.x, end.x) >= r.left &&
         std::min(start.y, end.y) <= r.bottom && std::max(start.y, end.y) >= r.top;
}

std::vector<POINT> FindOrthogonalRoute(const RouteEnd& from, const RouteEnd& to,
                                       std::span<const RECT> own, std::span<const RECT> others) {
  const POINT start = StepPoint(from.anchor, from.side);
  const POINT goal = StepPoint(to.anchor, to.side);
  std::vector<Obstacle> obstacles;
  for (const RECT& r : own) AddObstacle(obstacles, r, kThroughOwn, start, goal);
  std::vector<Obstacle> rest;
  for (const RECT& r : others) AddObstacle(rest, r, kThroughOther, start, goal);
  // Only what turns out to be in the way takes part in the search: mostly little, and all of a
  // large chart would be slow.
  const Direction leave = Outward(from.side);
  const Direction arrive = Opposite(Outward(to.side));
  std::size_t unlimited = std::numeric_limits<std::size_t>::max();
  std::vector<POINT> route = RouteGrid(start, goal, arrive, obstacles).Search(leave, unlimited);
  for (std::size_t work = kMostWork; work > 0;) {
    const auto isMet = [&](const Obstacle& obstacle) { return RouteTouches(route, obstacle.rect); };
    std::vector<Obstacle> met;
    std::ranges::copy_if(rest, std::back_inserter(met), isMet);
    if (met.empty() || obstacles.size() + met.size() > kMostObstacles) break;
    std::erase_if(rest, isMet);
    obstacles.insert(obstacles.end(), met.begin(), met.end());
    std::vector<POINT> better = RouteGrid(start, goal, arrive, obstacles).Search(leave, work);
    if (!better.empty()) route = std::move(better);
  }
  return route;
}

}  // namespace morvane
