#include "layout/LevelLayout.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <utility>

#include "layout/DotLayout.h"
#include "layout/GridLayout.h"

namespace morvane {

namespace {

/// Between groups, and between boxes in rows, model units.
constexpr std::int32_t kGap = 8;
/// In rows there is no room for a label that is wider.
constexpr std::int32_t kWidestGap = 40;
/// What runs from a box to itself takes so much beside it, and its label as much again. There is
/// the same room on both sides, so that the box stays in line with others.
constexpr std::int32_t kLoop = 8;
/// From the middle of a box to the labels beside what runs to it and back.
constexpr std::int32_t kBesideAxis = 6;
/// With more boxes and edges the engine would take more than a few seconds.
constexpr std::size_t kMostParts = 800;
/// So many are laid out both ways, to see which one is better.
constexpr std::size_t kFewParts = 150;
/// A height counts so much more than a width.
constexpr double kAspect = 1.6;

/// The group of each box: what hangs together has one number.
std::vector<int> GroupsOf(const LevelGraph& graph) {
  std::vector<int> groups(graph.sizes.size());
  std::iota(groups.begin(), groups.end(), 0);
  const auto find = [&groups](int at) {
    while (groups[at] != at) at = groups[at] = groups[groups[at]];
    return at;
  };
  for (const LayoutEdge& edge : graph.edges) {
    const int a = find(edge.from);
    const int b = find(edge.to);
    groups[std::max(a, b)] = std::min(a, b);
  }
  for (int i = 0; i < std::ssize(groups); ++i) groups[i] = find(i);
  return groups;
}

/// The boxes of each group, by their index in the level.
std::vector<std::vector<int>> MembersOf(const std::vector<int>& groups) {
  std::vector<std::vector<int>> members(groups.size());
  for (int i = 0; i < std::ssize(groups); ++i) members[groups[i]].push_back(i);
  std::erase_if(members, [](const auto& group) { return group.empty(); });
  return members;
}

/// How large a part of a screen it takes.
double Spread(const Placement& placed) {
  return std::max<double>(placed.size.cx, kAspect * placed.size.cy);
}

std::int32_t GapFor(const LevelGraph& graph) {
  std::int32_t gap = kGap;
  for (const LayoutEdge& edge : graph.edges) gap = std::max(gap, edge.label.cx + kGap / 2);
  return std::min(gap, kWidestGap);
}

/// A graph as the engine places it the same way each time: with one edge between two boxes, whose
/// label has the room of all of theirs, and none from a box to itself.
class SimpleGraph {
 public:
  SimpleGraph(const LevelGraph& graph, DotLayout::Flow flow)
      : flow(flow), shifts(graph.sizes.size()) {
    simple.sizes = graph.sizes;
    for (const LayoutEdge& edge : graph.edges) {
      edge.from == edge.to ? AddLoop(edge) : Add(edge);
    }
  }

  const LevelGraph& Graph() const { return simple; }
  /// The places of the boxes themselves, without the room beside them.
  Placement Of(Placement placed) const {
    for (std::size_t i = 0; i < shifts.size(); ++i) placed.corners[i].x += shifts[i];
    return placed;
  }

 private:
  void AddLoop(const LayoutEdge& edge) {
    shifts[edge.from] += kLoop + edge.label.cx;
    simple.sizes[edge.from].cx += 2 * (kLoop + edge.label.cx);
  }

  void Add(const LayoutEdge& edge) {
    const auto [first, isNew] = known.emplace(std::minmax(edge.from, edge.to), simple.edges.size());
    if (isNew) return simple.edges.push_back(edge);
    SIZE& label = simple.edges[first->second].label;
    // Labels stand on both sides of what runs to and fro.
    if (flow == DotLayout::Flow::Down) MakeRoom(edge);
    label.cx = std::max(label.cx, edge.label.cx);
    if (flow == DotLayout::Flow::Across) label.cy += edge.label.cy;
  }

  /// Widens the narrower box to both sides.
  void MakeRoom(const LayoutEdge& edge) {
    const bool isFrom = simple.sizes[edge.from].cx <= simple.sizes[edge.to].cx;
    const int box = isFrom ? edge.from : edge.to;
    const std::int32_t missing = 2 * (edge.label.cx + kBesideAxis) - simple.sizes[box].cx;
    if (missing <= 0) return;
    shifts[box] += missing / 2;
    simple.sizes[box].cx += missing;
  }

  DotLayout::Flow flow;
  LevelGraph simple;
  std::vector<std::int32_t> shifts;  ///< of boxes in the room that they got
  std::map<std::pair<int, int>, std::size_t> known;
};

std::optional<Placement> LayByRanks(const LevelGraph& graph, DotLayout::Flow flow) {
  const SimpleGraph simple(graph, flow);
  std::optional<Placement> placed = DotLayout::Lay(simple.Graph(), flow);
  if (placed) placed = simple.Of(std::move(*placed));
  return placed;
}

Placement InRows(const std::vector<SIZE>& sizes, std::int32_t gap) {
  Placement placed;
  placed.corners = GridLayout::Places(sizes, gap);
  placed.size = ExtentOf(sizes, placed.corners);
  return placed;
}

Placement LayGroup(const LevelGraph& graph) {
  if (graph.sizes.size() == 1) {
    const SimpleGraph simple(graph, DotLayout::Flow::Down);
    return simple.Of(InRows(simple.Graph().sizes, 0));
  }
  const std::size_t parts = graph.sizes.size() + graph.edges.size();
  std::optional<Placement> across;
  std::optional<Placement> down;
  if (parts <= kMostParts) down = LayByRanks(graph, DotLayout::Flow::Down);
  if (parts <= kFewParts) across = LayByRanks(graph, DotLayout::Flow::Across);
  if (across && (!down || Spread(*across) < Spread(*down))) return *across;
  return down ? *down : InRows(graph.sizes, GapFor(graph));
}

/// The part of a level that some of its boxes are.
class Group {
 public:
  explicit Group(std::vector<int> boxes) : members(std::move(boxes)) {}

  void Lay(const LevelGraph& level, const std::vector<int>& indexInGroup,
           const std::vector<const LayoutEdge*>& edges) {
    LevelGraph graph;
    for (const int member : members) graph.sizes.push_back(level.sizes[member]);
    for (const LayoutEdge* edge : edges) {
      graph.edges.push_back({indexInGroup[edge->from], indexInGroup[edge->to], edge->label});
    }
    placed = LayGroup(graph);
  }

  std::vector<int> members;
  Placement placed;
};

}  // namespace

Placement LevelLayout::Lay(const LevelGraph& graph) {
  const std::vector<int> groupOf = GroupsOf(graph);
  std::vector<std::vector<const LayoutEdge*>> edges(groupOf.size());
  for (const LayoutEdge& edge : graph.edges) edges[groupOf[edge.from]].push_back(&edge);
  std::vector<Group> groups;
  std::vector<int> index(graph.sizes.size(), 0);
  for (std::vector<int>& members : MembersOf(groupOf)) {
    for (int i = 0; i < std::ssize(members); ++i) index[members[i]] = i;
    const int number = groupOf[members.front()];
    Group group(std::move(members));
    group.Lay(graph, index, edges[number]);
    groups.push_back(std::move(group));
  }
  if (groups.empty()) return {};
  // The first one, where the chart begins, stays in front; others of a height go into one row.
  std::stable_sort(groups.begin() + 1, groups.end(), [](const Group& a, const Group& b) {
    return a.placed.size.cy > b.placed.size.cy;
  });
  std::vector<SIZE> sizes;
  sizes.reserve(groups.size());
  for (const Group& group : groups) sizes.push_back(group.placed.size);
  const std::vector<POINT> corners = GridLayout::Places(sizes, kGap);
  Placement whole;
  whole.corners.resize(graph.sizes.size());
  whole.size = ExtentOf(sizes, corners);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    for (std::size_t j = 0; j < groups[i].members.size(); ++j) {
      whole.corners[groups[i].members[j]] = groups[i].placed.corners[j] + corners[i];
    }
  }
  return whole;
}

}  // namespace morvane
