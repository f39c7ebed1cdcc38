#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "machine/DrawnChart.h"
#include "machine/Nesting.h"
#include "machine/ProblemList.h"

namespace morvane {

namespace {

using States = std::vector<DrawnState>;

bool IsState(const DrawnState& state) { return state.kind == DrawnObject::Kind::State; }

bool Contains(const RECT& a, const RECT& b) {
  return a.left <= b.left && a.top <= b.top && a.right >= b.right && a.bottom >= b.bottom;
}

/// What `Nesting` has to find, by looking at every pair: the parents, or that they don't nest.
std::optional<std::vector<int>> ParentsByPairs(const States& states) {
  std::vector<int> parents(states.size(), Nesting::kOutermost);
  for (std::size_t i = 0; i < states.size(); ++i) {
    const RECT& inner = states[i].rect;
    for (std::size_t k = 0; k < states.size(); ++k) {
      const RECT& outer = states[k].rect;
      if (i == k || !IsState(states[k])) continue;
      if (IsState(states[i]) && inner == outer) return {};
      if (Contains(outer, inner)) {
        int& parent = parents[i];
        const bool isSmaller = parent < 0 || Contains(states[parent].rect, outer);
        if (isSmaller) parent = static_cast<int>(k);
      } else if (!IsRectEmpty(IntersectRect(outer, inner)) &&
                 !(IsState(states[i]) && Contains(inner, outer))) {
        return {};
      }
    }
  }
  return parents;
}

/// Rectangles that mostly nest: each is a quarter of one that is a quarter and so on, and some have
/// no rule.
States AnyStates(std::mt19937& random) {
  const auto below = [&random](int limit) { return static_cast<std::int32_t>(random() % limit); };
  States states(1 + below(8));
  for (std::size_t i = 0; i < states.size(); ++i) {
    POINT corner;
    std::int32_t side = 64;
    for (int depth = below(4); depth-- > 0;) {
      side /= 2;
      corner = corner + POINT{below(2) * side, below(2) * side};
    }
    RECT& rect = states[i].rect;
    rect = {corner.x, corner.y, corner.x + side, corner.y + side};
    if (below(12) == 0) rect = {below(30), below(30), 31 + below(30), 31 + below(30)};
    states[i].id = states[i].line = static_cast<int>(i) + 1;
    states[i].kind = std::array{DrawnObject::Kind::State, DrawnObject::Kind::State,
                                DrawnObject::Kind::InitialMark}[below(3)];
  }
  return states;
}

TEST(Nesting, FindsWhatLookingAtEveryPairFinds) {
  std::mt19937 random(17);
  int nested = 0;
  int refused = 0;
  for (int run = 0; run < 8000; ++run) {
    const States states = AnyStates(random);
    ProblemList problems;
    const std::vector<int> parents = Nesting(states, problems).Parents();
    const auto wanted = ParentsByPairs(states);
    ASSERT_EQ(problems.HasErrors(), !wanted.has_value()) << "run " << run;
    if (wanted) {
      ASSERT_EQ(parents, *wanted) << "run " << run;
    }
    ++(wanted ? nested : refused);
  }
  EXPECT_GT(nested, 1000);
  EXPECT_GT(refused, 200);
}

}  // namespace

}  // namespace morvane
