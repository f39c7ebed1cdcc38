#include "connectors/HeadLink.h"
#include "connectors/LinkChain.h"
#include "connectors/TailLink.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

using Change = std::function<void(LinkChain&)>;

Link* LinkAt(const LinkChain& chain, int place) {
  Link* link = chain.Head();
  for (; place > 0; --place) link = link->next;
  return link;
}

Change Move(int link, POINT to) {
  return [=](LinkChain& chain) { LinkAt(chain, link)->MoveTo(to); };
}

/// A head or tail that points down.
Change MoveHead(POINT to) {
  return [=](LinkChain& chain) { chain.Head()->MoveEnds(to, to + POINT{0, 1}); };
}
Change MoveTail(POINT to) {
  return [=](LinkChain& chain) { chain.Tail()->MoveEnds(to, to + POINT{0, 1}); };
}

/// From a bottom anchor over two bends, and over one.
const std::string kStairs = "10,10 10,11 10,20 30,20 30,40 30,41";
const std::string kHook = "10,10 10,11 30,11 30,40 30,41";

TEST(LinkChain, ChangesByTheLocalRules) {
  const std::string level = "10,10 11,10 11,50 39,50 40,50";
  const std::string straight = "10,10 10,11 10,12";
  const std::string farHead = "30,0 30,1 10,1 10,11 10,12";
  const Change cut = [](LinkChain& chain) { EXPECT_FALSE(chain.RemoveCrossing()); };
  const Change joinAndMove = [&](LinkChain& chain) {
    cut(chain);
    LinkAt(chain, 2)->MoveTo({0, 7});
  };
  const struct {
    const char* name;
    std::string before;
    Change change;
    std::string after;
  } cases[] = {
      {"the first vertical onto the second", kStairs, Move(1, {30, 0}), kHook},
      {"the horizontal up to the head", kStairs, Move(2, {0, 11}), kHook},
      {"a bend at the head", level, Move(1, {20, 0}), "10,10 11,10 20,10 20,50 39,50 40,50"},
      {"a bend at the tail", kHook, Move(2, {40, 0}), "10,10 10,11 40,11 40,40 30,40 30,41"},
      {"onto a loop, so that its neighbours become one",
       "0,0 0,1 0,5 10,5 10,20 0,20 0,30 9,30 10,30", Move(4, {0, 5}), "0,0 0,1 0,30 9,30 10,30"},
      {"the tail aside", kHook, MoveTail({35, 40}), "10,10 10,11 35,11 35,40 35,41"},
      {"a bend for the head", straight, MoveHead({30, 0}), farHead},
      {"and none", farHead, MoveHead({10, 10}), straight},
      {"a link for the tail", straight, MoveTail({10, 30}), "10,10 10,11 10,30 10,31"},
      {"nothing left of the first link", "0,0 0,1 0,9 10,9 10,1 20,1 21,1", MoveHead({10, 3}),
       "10,3 10,4 10,1 20,1 21,1"},
      {"a loop is cut out", "0,0 0,1 0,9 9,9 9,5 -5,5 -5,20 3,20 3,21", cut,
       "0,0 0,1 0,5 -5,5 -5,20 3,20 3,21"},
      {"links that overlap are joined and move as one",
       "0,0 0,1 0,5 20,5 20,8 10,8 10,5 30,5 30,9 30,10", joinAndMove,
       "0,0 0,1 0,7 30,7 30,9 30,10"}};
  for (const auto& c : cases) {
    LinkChain chain(nullptr);
    ASSERT_TRUE(chain.Build(Chain(c.before)));
    c.change(chain);
    EXPECT_EQ(Corners(chain.Records()), c.after) << c.name;
    EXPECT_TRUE(chain.RemoveCrossing()) << c.name;
  }
}

}  // namespace

}  // namespace morvane
