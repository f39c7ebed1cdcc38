#include <random>

#include "layout/NestedLayout.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

constexpr int kOutermost = LayoutBox::kOutermost;

bool Meet(const RECT& a, const RECT& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

/// What is wrong with a layout; empty if nothing is.
std::string FaultOf(const LayoutGraph& graph, const std::vector<RECT>& rects) {
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const LayoutBox& box = graph.boxes[i];
    const RECT& r = rects[i];
    const std::string name = std::to_string(i);
    if (Width(r) < box.size.cx || Height(r) < box.size.cy) return name + " is too small";
    if (r.left < 0 || r.top < 0) return name + " is off the chart";
    if (box.holder != kOutermost) {
      const RECT& outer = rects[box.holder];
      const bool inside = outer.left < r.left && outer.right > r.right && outer.bottom > r.bottom &&
                          outer.top + graph.boxes[box.holder].head <= r.top;
      if (!inside) return name + " sticks out";
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (graph.boxes[j].holder == box.holder && Meet(rects[j], r)) return name + " is covered";
    }
  }
  return {};
}

LayoutGraph RandomGraph(unsigned seed, int boxes, int edges) {
  std::mt19937 engine(seed);
  const auto below = [&engine](int limit) {
    return static_cast<int>(engine() % static_cast<unsigned>(limit));
  };
  LayoutGraph graph;
  for (int i = 0; i < boxes; ++i) {
    LayoutBox box;
    if (i > 0 && below(3) > 0) box.holder = below(i);
    box.size = {4 + below(40), 4 + below(30)};
    box.head = below(12);
    graph.boxes.push_back(box);
  }
  for (int i = 0; i < edges; ++i) {
    graph.edges.push_back({below(boxes), below(boxes), {below(2) * (5 + below(40)), 4}});
  }
  return graph;
}

TEST(Layout, BoxesStandApartAndInTheirHolders) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    const LayoutGraph graph =
        RandomGraph(seed, 1 + static_cast<int>(seed), 2 * static_cast<int>(seed));
    EXPECT_EQ(FaultOf(graph, NestedLayout::Rects(graph)), "") << seed;
  }
}

TEST(Layout, TheSameGraphGivesTheSamePlaces) {
  const LayoutGraph graph = RandomGraph(7, 40, 60);
  EXPECT_EQ(NestedLayout::Rects(graph), NestedLayout::Rects(graph));
}

TEST(Layout, ManyBoxesAndDeepOnesAreLaidOutToo) {
  LayoutGraph flat;
  LayoutGraph deep;
  constexpr int count = 3000;
  for (int i = 0; i < count; ++i) {
    flat.boxes.push_back({kOutermost, {20, 12}, 0, LayoutBox::Kind::Plain});
    flat.edges.push_back({i, (i * 7 + 1) % count, {10, 4}});
    deep.boxes.push_back({i - 1, {20, 12}, 4, LayoutBox::Kind::Plain});
  }
  EXPECT_EQ(FaultOf(flat, NestedLayout::Rects(flat)), "");
  EXPECT_EQ(FaultOf(deep, NestedLayout::Rects(deep)), "");
}

TEST(Layout, AChainRunsOneWay) {
  LayoutGraph chain;
  for (int i = 0; i < 4; ++i) chain.boxes.push_back({kOutermost, {20, 12}, 0, {}});
  for (int i = 0; i < 3; ++i) chain.edges.push_back({i, i + 1, {}});
  const std::vector<RECT> rects = NestedLayout::Rects(chain);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(rects[i].right <= rects[i + 1].left || rects[i].bottom <= rects[i + 1].top) << i;
  }
}

}  // namespace

}  // namespace morvane
