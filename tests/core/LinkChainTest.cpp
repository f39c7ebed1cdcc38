#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "connectors/HeadLink.h"
#include "connectors/LinkChain.h"
#include "connectors/RouteCrossing.h"
#include "connectors/TailLink.h"
#include "model/ShapeGeometry.h"
#include "tests/support/Routes.h"

namespace {

using Records = std::vector<ChainRecord>;

Link* LinkAt(const LinkChain& chain, int place) {
  Link* link = chain.Head();
  for (; place > 0; --place) link = link->next;
  return link;
}

/// What is wrong with a chain; empty if nothing is.
std::string Fault(const LinkChain& chain) {
  for (const Link* link = chain.Head(); link != nullptr; link = link->next) {
    const Link* next = link->next;
    if ((link->prev == nullptr) != (link == chain.Head())) return "front";
    if ((next == nullptr) != (link == chain.Tail())) return "back";
    if (next != nullptr && (next->prev != link || link->end != next->start)) return "gap";
    if (!link->IsSegment()) continue;
    if (link->kind == LINK_H ? link->start.y != link->end.y : link->start.x != link->end.x) {
      return "slant";
    }
    if (link->start == link->end) return "no length";
  }
  return "";
}

bool HasTwins(const LinkChain& chain) {
  for (const Link* link = chain.Head(); link->next != nullptr; link = link->next) {
    if (link->kind == link->next->kind) return true;
  }
  return false;
}

/// From a bottom anchor over two bends, and over one.
const std::string kStairs = "10,10 10,11 10,20 30,20 30,40 30,41";
const std::string kHook = "10,10 10,11 30,11 30,40 30,41";

TEST(LinkChain, MovesALinkByTheLocalRules) {
  const struct {
    const char* name;
    std::string before;
    int link;
    POINT to;
    std::string after;
  } cases[] = {
      {"the first vertical onto the second", kStairs, 1, {30, 0}, kHook},
      {"the horizontal up to the head", kStairs, 2, {0, 11}, kHook},
      {"a bend at the head",
       "10,10 11,10 11,50 39,50 40,50",
       1,
       {20, 0},
       "10,10 11,10 20,10 20,50 39,50 40,50"},
      {"a bend at the tail", kHook, 2, {40, 0}, "10,10 10,11 40,11 40,40 30,40 30,41"},
      {"to where it is", kStairs, 2, {99, 20}, kStairs},
      {"a head stays", kStairs, 0, {99, 99}, kStairs},
      {"a tail stays", kStairs, 4, {99, 99}, kStairs},
      {"onto a loop: nothing is left of the link, and its neighbours become one",
       "0,0 0,1 0,5 10,5 10,20 0,20 0,30 9,30 10,30",
       4,
       {0, 5},
       "0,0 0,1 0,30 9,30 10,30"},
  };
  for (const auto& c : cases) {
    LinkChain chain(nullptr);
    ASSERT_TRUE(chain.Build(Chain(c.before)));
    LinkAt(chain, c.link)->MoveTo(c.to);
    EXPECT_EQ(Corners(chain.Records()), c.after) << c.name;
  }
}

TEST(LinkChain, MovesItsEnds) {
  const struct {
    std::string before;
    bool head;
    POINT start, end;
    std::string after;
  } cases[] = {
      {kHook, false, {35, 40}, {35, 41}, "10,10 10,11 35,11 35,40 35,41"},
      {kHook, false, {30, 60}, {30, 61}, "10,10 10,11 30,11 30,60 30,61"},
      {"10,10 10,11 10,12", true, {30, 0}, {30, 1}, "30,0 30,1 10,1 10,11 10,12"},
      {"30,0 30,1 10,1 10,11 10,12", true, {10, 10}, {10, 11}, "10,10 10,11 10,12"},
      {"10,10 10,11 10,12", false, {10, 30}, {10, 31}, "10,10 10,11 10,30 10,31"},
      // Nothing is left of the first link, and the next one doesn't reach the new end.
      {"0,0 0,1 0,9 10,9 10,1 20,1 21,1", true, {10, 3}, {10, 4}, "10,3 10,4 10,1 20,1 21,1"},
  };
  for (const auto& c : cases) {
    LinkChain chain(nullptr);
    ASSERT_TRUE(chain.Build(Chain(c.before)));
    c.head ? chain.Head()->MoveEnds(c.start, c.end) : chain.Tail()->MoveEnds(c.start, c.end);
    EXPECT_EQ(Corners(chain.Records()), c.after) << "from " << c.before;
  }
}

TEST(LinkChain, BuildsWhatAFileHolds) {
  const ChainRecord head{LINK_HEAD, {0, 0}, {0, 1}};
  const ChainRecord down{LINK_V, {0, 1}, {0, 9}};
  const ChainRecord tail{LINK_TAIL, {0, 9}, {0, 10}};
  const ChainRecord aside{LINK_TAIL, {6, 9}, {6, 10}};
  const ChainRecord point{LINK_H, {0, 9}, {0, 9}};
  const ChainRecord unknown{7, {1, 2}, {3, 4}};
  const ChainRecord slant{LINK_H, {5, 5}, {9, 6}};
  const Records bare{{LINK_HEAD, {0, 1}, {0, 1}}, down, {LINK_TAIL, {0, 9}, {0, 9}}};
  const Records gapped{head, slant, {LINK_V, {6, 6}, {6, 9}}, aside};
  const struct {
    const char* name;
    Records records;
    std::string built;  // empty: refused
  } cases[] = {
      {"as it stands", {head, down, tail}, "0,0 0,1 0,9 0,10"},
      {"unknown kinds, no length", {unknown, head, point, down, point, tail}, "0,0 0,1 0,9 0,10"},
      {"stubs of no length", bare, Corners(bare)},
      {"gaps and slants stay", gapped, Corners(gapped)},
      {"the one before a last link that vanishes",
       {head, down, {LINK_H, {2, 5}, {9, 5}}, {LINK_TAIL, {2, 4}, {2, 3}}},
       "0,0 0,1 2,1 2,4 2,3"},
      {"the last link moves to the tail", {head, down, aside}, "0,0 0,1 6,1 6,9 6,10"},
      {"nothing between", {head, aside}, "0,0 0,1 6,1 6,9 6,10"},
      {"no head", {down, tail}, ""},
      {"a late head", {down, head, tail}, ""},
      {"two heads", {head, down, head, tail}, ""},
      {"no tail", {head, down}, ""},
      {"nothing", {}, ""},
  };
  for (const auto& c : cases) {
    LinkChain chain(nullptr);
    EXPECT_EQ(chain.Build(c.records), !c.built.empty()) << c.name;
    EXPECT_EQ(Corners(chain.Records()), c.built) << c.name;
  }
}

TEST(LinkChain, StraightensWhatAFileHolds) {
  LinkChain chain(nullptr);
  chain.Build(Records{{LINK_HEAD, {0, 0}, {0, 1}},
                      {LINK_H, {5, 5}, {9, 6}},
                      {LINK_H, {9, 8}, {12, 8}},
                      {LINK_V, {20, 6}, {20, 9}},
                      {LINK_TAIL, {20, 9}, {20, 10}}});
  for (int i = 0; i < 2; ++i) {
    chain.Straighten();
    EXPECT_EQ(Corners(chain.Records()), "0,0 0,1 0,5 9,5 9,8 20,8 20,9 20,10");
  }
}

TEST(LinkChain, KeepsItsShapeAtTheLimit) {
  LinkChain chain(nullptr);
  chain.Build(Chain("2147483638,0 2147483638,1 2147483645,1 2147483645,5 2147483645,6"));
  chain.Head()->Offset({5, -3});
  EXPECT_EQ(Corners(chain.Records()),
            "2147483640,-3 2147483640,-2 2147483647,-2 2147483647,2 2147483647,3");
}

TEST(LinkChain, CutsALoopOut) {
  LinkChain chain(nullptr);
  chain.Build(Chain("0,0 0,1 0,9 9,9 9,5 -5,5 -5,20 3,20 3,21"));
  EXPECT_FALSE(chain.RemoveCrossing());
  EXPECT_EQ(Corners(chain.Records()), "0,0 0,1 0,5 -5,5 -5,20 3,20 3,21");
  EXPECT_TRUE(chain.RemoveCrossing());
}

TEST(LinkChain, LinksThatOverlapAreJoinedAndMoveAsOne) {
  LinkChain chain(nullptr);
  chain.Build(Chain("0,0 0,1 0,5 20,5 20,8 10,8 10,5 30,5 30,9 30,10"));
  ASSERT_FALSE(chain.RemoveCrossing());
  ASSERT_TRUE(HasTwins(chain));
  LinkAt(chain, 2)->MoveTo({0, 7});
  EXPECT_EQ(Corners(chain.Records()), "0,0 0,1 0,7 30,7 30,9 30,10");
}

/// Coordinates that collide often, with some at the limits.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine(seed) {}
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(engine); }
  std::int32_t Coordinate() {
    const int pick = Below(60);
    if (pick == 0) return std::numeric_limits<std::int32_t>::max();
    if (pick == 1) return std::numeric_limits<std::int32_t>::min();
    return Below(12);
  }
  POINT Point() { return {Coordinate(), Coordinate()}; }

 private:
  std::mt19937 engine;
};

TEST(LinkChain, HoldsItsInvariantsThroughAnything) {
  Dice dice(1);
  for (int round = 0; round < 400; ++round) {
    LinkChain chain(nullptr);
    Records records{{LINK_HEAD, dice.Point(), dice.Point()}};
    for (int i = dice.Below(8); i > 0; --i) {
      records.push_back({dice.Below(2), dice.Point(), dice.Point()});
    }
    records.push_back({LINK_TAIL, dice.Point(), dice.Point()});
    ASSERT_TRUE(chain.Build(records));
    ASSERT_EQ(chain.Tail()->prev->end, chain.Tail()->start) << "round " << round;
    LinkChain again(nullptr);
    ASSERT_TRUE(again.Build(chain.Records()));
    ASSERT_EQ(Corners(again.Records()), Corners(chain.Records())) << "round " << round;
    chain.Straighten();
    ASSERT_EQ(Fault(chain), "") << "round " << round;
    bool crossed = HasTwins(chain);
    for (int step = 0; step < 60; ++step) {
      const POINT p = dice.Point();
      const std::uint16_t side = static_cast<std::uint16_t>(1 + dice.Below(4));
      switch (dice.Below(6)) {
        case 0:
          chain.Head()->MoveEnds(p, StepPoint(p, side));
          EXPECT_EQ(chain.Head()->start, p);
          break;
        case 1:
          chain.Tail()->MoveEnds(StepPoint(p, side), p);
          EXPECT_EQ(chain.Tail()->end, p);
          break;
        case 2: crossed = !chain.RemoveCrossing() || crossed; break;
        case 3: chain.Head()->Offset({dice.Below(9) - 4, dice.Below(9) - 4}); break;
        default: LinkAt(chain, dice.Below(static_cast<int>(chain.Records().size())))->MoveTo(p);
      }
      ASSERT_EQ(Fault(chain), "") << "round " << round << " step " << step;
      ASSERT_TRUE(crossed || !HasTwins(chain)) << "round " << round << " step " << step;
    }
  }
}

/// The search as it is meant, each with each.
std::optional<RouteCrossing> SlowSearch(const std::vector<RouteSegment>& route) {
  for (std::size_t a = 0; a < route.size(); ++a) {
    for (std::size_t b = route.size(); b-- > a + 2;) {
      POINT p;
      if (SegmentCrossing(route[a].start, route[a].end, route[b].start, route[b].end, p)) {
        return RouteCrossing{a, b, p};
      }
    }
  }
  return std::nullopt;
}

TEST(LinkChain, TheEndLinksNeverShrinkToAPoint) {
  LinkChain chain(nullptr);
  ASSERT_TRUE(chain.Build(Chain(kStairs)));
  chain.Head()->SetEnds({20, 10}, {20, 11});
  chain.Tail()->SetEnds({30, 50}, {30, 51});
  chain.Head()->SetEnds({5, 5}, {5, 5});
  chain.Tail()->SetEnds({5, 5}, {5, 5});
  EXPECT_EQ(chain.Head()->start, (POINT{20, 10}));
  EXPECT_EQ(chain.Head()->end, (POINT{20, 11}));
  EXPECT_EQ(chain.Tail()->start, (POINT{30, 50}));
  EXPECT_EQ(chain.Tail()->end, (POINT{30, 51}));
}

TEST(LinkCrossing, LongRoutesGiveWhatComparingEachWithEachGives) {
  Dice dice(2);
  int found = 0;
  for (int round = 0; round < 300; ++round) {
    std::vector<RouteSegment> route;
    POINT at{0, 0};
    for (int i = 0; i < 60 + dice.Below(60); ++i) {
      POINT to = at;
      // Mostly ahead, so that some routes cross late or not at all.
      const int step = dice.Below(40) == 0 ? -dice.Below(9) - 1 : dice.Below(5) + 1;
      (dice.Below(8) != 0) == (i % 2 != 0) ? to.x += step : to.y += step;
      route.push_back({at, to});
      at = to;
    }
    const auto expected = SlowSearch(route);
    found += expected ? 1 : 0;
    ASSERT_EQ(FindRouteCrossing(route), expected) << "round " << round;
  }
  EXPECT_GT(found, 50);
  EXPECT_LT(found, 290);
}

TEST(LinkCrossing, ALongSpiralIsSearchedInTime) {
  // Comparing each with each would take hours.
  constexpr std::int32_t links = 400000;
  std::vector<RouteSegment> route;
  POINT at{0, 0};
  for (std::int32_t i = 1; i <= links; ++i) {
    const std::int32_t step = i / 2 * (i / 2 % 2 != 0 ? 2 : -2);
    const POINT to = i % 2 != 0 ? POINT{at.x, at.y + step} : POINT{at.x + step, at.y};
    if (to != at) route.push_back({at, to});
    at = to;
  }
  EXPECT_FALSE(FindRouteCrossing(route));
  route.push_back({at, {0, at.y}});
  route.push_back({{0, at.y}, {0, 1}});
  EXPECT_TRUE(FindRouteCrossing(route));
}

}  // namespace
