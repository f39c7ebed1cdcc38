#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
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

class AnyStates {
 public:
  explicit AnyStates(unsigned seed) : random(seed) {}

  /// Rectangles that mostly nest, since each is cut from one that stands already.
  States Make() {
    States states;
    std::vector<RECT> free{{0, 0, 60, 60}};
    const int count = Below(12) + 1;
    for (int i = 0; i < count; ++i) {
      DrawnState state;
      state.id = i + 1;
      state.line = i + 1;
      state.kind = Below(4) == 0 ? (Below(2) == 0 ? DrawnObject::Kind::InitialMark
                                                  : DrawnObject::Kind::FinalMark)
                                 : DrawnObject::Kind::State;
      const std::size_t place = static_cast<std::size_t>(Below(static_cast<int>(free.size())));
      const RECT room = Below(30) == 0 ? RECT{0, 0, 60, 60} : free[place];
      state.rect = Inside(room);
      if (IsRectEmpty(state.rect)) continue;
      free.erase(free.begin() + static_cast<std::ptrdiff_t>(place));
      if (IsState(state)) free.push_back(state.rect);
      free.push_back({room.left, room.top, state.rect.left, room.bottom});
      free.push_back({state.rect.right, room.top, room.right, room.bottom});
      free.push_back({state.rect.left, room.top, state.rect.right, state.rect.top});
      free.push_back({state.rect.left, state.rect.bottom, state.rect.right, room.bottom});
      states.push_back(state);
    }
    std::ranges::shuffle(states, random);
    return states;
  }

 private:
  int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

  std::int32_t Between(std::int32_t low, std::int32_t high) {
    return high <= low ? low : low + Below(high - low + 1);
  }

  RECT Inside(const RECT& room) {
    RECT rect;
    rect.left = Between(room.left, room.right);
    rect.right = Between(rect.left, room.right);
    rect.top = Between(room.top, room.bottom);
    rect.bottom = Between(rect.top, room.bottom);
    return rect;
  }

  std::mt19937 random;
};

TEST(Nesting, FindsWhatLookingAtEveryPairFinds) {
  int nested = 0;
  int refused = 0;
  for (unsigned seed = 1; seed <= 4000; ++seed) {
    const States states = AnyStates(seed).Make();
    ProblemList problems;
    const std::vector<int> parents = Nesting(states, problems).Parents();
    const auto wanted = ParentsByPairs(states);
    ASSERT_EQ(problems.HasErrors(), !wanted.has_value()) << "seed " << seed;
    if (wanted) {
      ASSERT_EQ(parents, *wanted) << "seed " << seed;
    }
    ++(wanted ? nested : refused);
  }
  EXPECT_GT(nested, 1000);
  EXPECT_GT(refused, 200);
}

TEST(Nesting, HoldsAtTheLimitsOfNumbers) {
  constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  States states(3);
  states[0].rect = {low, low, high, high};
  states[1].rect = {low, low, 0, high};
  states[2].rect = {high - 1, low, high, high};
  for (DrawnState& state : states) state.kind = DrawnObject::Kind::State;
  states[2].kind = DrawnObject::Kind::FinalMark;
  ProblemList problems;
  EXPECT_EQ(Nesting(states, problems).Parents(), (std::vector{-1, 0, 0}));
  EXPECT_FALSE(problems.HasErrors());
}

}  // namespace

}  // namespace morvane
