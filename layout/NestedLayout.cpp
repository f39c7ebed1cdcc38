#include "layout/NestedLayout.h"

#include <algorithm>
#include <utility>

#include "layout/LevelLayout.h"

namespace morvane {

namespace {

constexpr int kOutermost = LayoutBox::kOutermost;
/// From what stands inside to the border around it, model units: room for a route and its turn.
constexpr std::int32_t kMargin = 6;

class Nest {
 public:
  explicit Nest(const LayoutGraph& graph)
      : graph(graph), inner(graph.boxes.size() + 1), edges(inner.size()) {
    for (int i = 0; i < std::ssize(graph.boxes); ++i)
      inner[Slot(graph.boxes[i].holder)].push_back(i);
    SortByDepth();
    for (const LayoutEdge& edge : graph.edges) Lift(edge);
    for (const LayoutBox& box : graph.boxes) sizes.push_back(box.size);
    places.resize(sizes.size());
  }

  std::vector<RECT> Lay() {
    for (auto box = outerFirst.rbegin(); box != outerFirst.rend(); ++box) LayLevel(*box);
    LayLevel(kOutermost);
    std::vector<RECT> rects(sizes.size());
    for (const int box : outerFirst) {
      const int holder = graph.boxes[box].holder;
      POINT corner = places[box];
      if (holder != kOutermost) corner = corner + TopLeft(rects[holder]);
      rects[box] = {corner.x, corner.y, corner.x + sizes[box].cx, corner.y + sizes[box].cy};
    }
    return rects;
  }

 private:
  /// The level of the chart itself comes first.
  static int Slot(int holder) { return holder + 1; }

  void SortByDepth() {
    depths.resize(graph.boxes.size(), 0);
    outerFirst = inner[Slot(kOutermost)];
    for (std::size_t i = 0; i < outerFirst.size(); ++i) {
      const int outer = outerFirst[i];
      for (const int box : inner[Slot(outer)]) {
        depths[box] = depths[outer] + 1;
        outerFirst.push_back(box);
      }
    }
  }

  /// Takes an edge to the level where its ends stand side by side.
  void Lift(const LayoutEdge& edge) {
    int from = edge.from;
    int to = edge.to;
    const auto holder = [this](int box) { return graph.boxes[box].holder; };
    while (depths[from] > depths[to]) from = holder(from);
    while (depths[to] > depths[from]) to = holder(to);
    while (holder(from) != holder(to)) {
      from = holder(from);
      to = holder(to);
    }
    // What leads from a box to one inside it is no matter of their levels.
    if (from == to && edge.from != edge.to) return;
    edges[Slot(holder(from))].push_back({from, to, edge.label});
  }

  void LayLevel(int holder) {
    std::vector<int> level = inner[Slot(holder)];
    if (level.empty()) return;
    // A flow begins where its first box is.
    std::ranges::stable_sort(level, {}, [this](int box) {
      using enum LayoutBox::Kind;
      const LayoutBox::Kind kind = graph.boxes[box].kind;
      return kind == Start ? 0 : kind == Plain ? 1 : 2;
    });
    indexInLevel.resize(graph.boxes.size());
    LevelGraph local;
    for (const int box : level) {
      indexInLevel[box] = static_cast<int>(local.sizes.size());
      local.sizes.push_back(sizes[box]);
    }
    for (const LayoutEdge& edge : edges[Slot(holder)]) {
      local.edges.push_back({indexInLevel[edge.from], indexInLevel[edge.to], edge.label});
    }
    const Placement found = LevelLayout::Lay(local);
    if (holder != kOutermost) Grow(holder, found.size);
    for (std::size_t i = 0; i < level.size(); ++i) {
      places[level[i]] = found.corners[i];
      if (holder != kOutermost)
        places[level[i]] = found.corners[i] + POINT{kMargin, HeadOf(holder)};
    }
  }

  std::int32_t HeadOf(int box) const { return graph.boxes[box].head + kMargin / 2; }

  void Grow(int box, SIZE contents) {
    // Even sizes have their middle at a whole unit.
    const auto even = [](std::int32_t size) { return size + size % 2; };
    sizes[box].cx = even(std::max(sizes[box].cx, contents.cx + 2 * kMargin));
    sizes[box].cy = even(std::max(sizes[box].cy, HeadOf(box) + contents.cy + kMargin));
  }

  const LayoutGraph& graph;
  std::vector<std::vector<int>> inner;  ///< the boxes of each level
  std::vector<std::vector<LayoutEdge>> edges;
  std::vector<int> depths;
  std::vector<int> outerFirst;
  std::vector<int> indexInLevel;
  std::vector<SIZE> sizes;
  std::vector<POINT> places;  ///< in the box that holds each
};

}  // namespace

std::vector<RECT> NestedLayout::Rects(const LayoutGraph& graph) { return Nest(graph).Lay(); }

}  // namespace morvane
