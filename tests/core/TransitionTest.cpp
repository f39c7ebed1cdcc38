#include "platform/MessageBox.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

constexpr int kSource = 101;
constexpr int kTarget = 102;
constexpr int kArrow = 103;
constexpr int kMesg = 104;
/// Between the middle of a bottom side and of a top side.
const std::string kDownKeys = "3 2 1 2";
const std::string kDown = "10,10 10,11 40,11 40,49 40,50";
const std::string kDownLinks = "2 10 10 10 11 \n1 10 11 40 11 \n0 40 11 40 49 \n3 40 49 40 50 \n";

/// A state above, one below to the right, the transition between them, and what is added.
std::unique_ptr<LayoutMgr> TwoStates(const std::string& more = "",
                                     const std::string& keys = kDownKeys,
                                     const std::string& links = kDownLinks) {
  return LoadChart(ChartText(StateRecord(kSource, {5, 2, 15, 10}) +
                             StateRecord(kTarget, {35, 50, 45, 60}) +
                             TransitionRecord(kArrow, kSource, kTarget, keys, links) + more));
}

Transition& Arrow(const LayoutMgr& chart) { return *Find<Transition>(chart, kArrow); }

void MoveState(const LayoutMgr& chart, int id, POINT by) {
  auto* state = Find<GenericState>(chart, id);
  state->MoveTo(state->GetBounds() + by);
}

TEST(Transition, ConnectsAnchors) {
  const auto chart = LoadChart(ChartText(StateRecord(kSource, {5, 2, 15, 10}) +
                                         StateRecord(kTarget, {35, 50, 45, 60}) +
                                         StateRecord(105, {10, 110, 30, 130})));
  ModelMgr& model = chart->GetModel();
  auto* from = Find<GenericState>(*chart, kSource);
  auto* to = Find<GenericState>(*chart, kTarget);
  auto* self = Find<GenericState>(*chart, 105);
  const AnchorKey top{2, SIDE_TOP};
  const AnchorKey right{2, SIDE_RIGHT};
  const AnchorKey bottom{2, SIDE_BOTTOM};
  const POINT drop{360, 240};
  const auto made = [&] {
    return Corners(dynamic_cast<Transition&>(*model.Objects().back()).Route());
  };
  model.ConnectAnchors(from, to, &bottom, &top, nullptr);
  EXPECT_EQ(made(), kDown);
  model.ConnectAnchors(self, self, &right, &top, nullptr);
  EXPECT_EQ(made(), "30,120 31,120 31,109 20,109 20,110");
  model.ConnectAnchors(from, nullptr, &bottom, nullptr, &drop);
  EXPECT_EQ(made(), "10,10 10,11 60,11 60,39 60,40");
  const std::size_t count = model.Objects().size();
  model.ConnectAnchors(self, self, &top, &top, nullptr);
  EXPECT_EQ(model.Objects().size(), count);
}

TEST(Transition, FollowsItsStates) {
  const auto chart = TwoStates();
  MoveState(*chart, kSource, {3, 4});
  EXPECT_EQ(Corners(Arrow(*chart).Route()), "13,14 13,15 40,15 40,49 40,50");
  MoveState(*chart, kTarget, {-2, 5});
  EXPECT_EQ(Corners(Arrow(*chart).Route()), "13,14 13,15 38,15 38,54 38,55");
  // A selected one moves by itself.
  chart->GetSelection().Add(&Arrow(*chart));
  MoveState(*chart, kSource, {1, 1});
  EXPECT_EQ(Corners(Arrow(*chart).Route()), "13,14 13,15 38,15 38,54 38,55");
}

TEST(Transition, StaysWhereAKeyNamesNoAnchor) {
  const auto chart = TwoStates("", "3 77 1 2");
  const std::string before = chart->ModelText();
  EXPECT_NE(before.find("\n3 77 1 2\n"), std::string::npos);
  Arrow(*chart).OnSourceMoved();
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_EQ(Arrow(*chart).GetSource(), Find<GenericState>(*chart, kSource));
}

TEST(Transition, ADamagedChainIsTheFreeArrowOfItsPoints) {
  const auto chart = TwoStates("", kDownKeys, "0 10 11 40 49 \n3 40 49 40 50 \n");
  EXPECT_EQ(Corners(Arrow(*chart).Route()), "22,10 22,11 22,17 22,18");
}

TEST(Transition, MovesWithItsStatesOrLetsGoOfThem) {
  const auto chart = TwoStates();
  Transition& arrow = Arrow(*chart);
  Collection& selection = chart->GetSelection();
  selection.Add(&arrow);
  selection.Add(Find<GenericState>(*chart, kSource));
  POINT by{5, 6};
  selection.Broadcast(BROADCAST_MOVE, &by, nullptr);
  EXPECT_EQ(Corners(arrow.Route()), "15,16 15,17 45,17 45,55 45,56");
  EXPECT_NE(arrow.GetSource(), nullptr);
  EXPECT_EQ(arrow.GetTarget(), nullptr);
  EXPECT_TRUE(Find<GenericState>(*chart, kTarget)->GetIncoming().empty());
  delete Find<GenericState>(*chart, kSource);
  EXPECT_EQ(arrow.GetSource(), nullptr);
  EXPECT_EQ(Corners(arrow.Route()), "15,16 15,17 45,17 45,55 45,56");
}

/// A route with so many loops, each of which crosses itself once.
std::string Loops(int count) {
  std::string links = "2 10 10 10 11 \n";
  POINT at{10, 11};
  const auto go = [&](int kind, POINT by) {
    for (const int number : {kind, at.x, at.y, at.x + by.x, at.y + by.y}) {
      links += std::to_string(number) + " ";
    }
    links += "\n";
    at = at + by;
  };
  for (int i = 0; i < count; ++i) {
    for (const POINT by : Points("6,0 0,4 -3,0 0,-10 6,0 0,6")) go(by.y == 0 ? LINK_H : LINK_V, by);
  }
  go(LINK_H, {3, 0});
  go(LINK_V, {0, 9});
  go(LINK_TAIL, {0, 1});
  return links;
}

TEST(Transition, CutsOutFourLoopsAndGivesUpAtFive) {
  ScriptedMessageBoxes boxes;
  const auto four = TwoStates("", kDownKeys, Loops(4));
  MoveState(*four, kSource, {0, -1});
  // Two of the six links of each loop are gone.
  EXPECT_EQ(Arrow(*four).Route().size(), 4U * 4 + 4);
  EXPECT_TRUE(boxes.Shown().empty());

  boxes.Expect("UnRecoverable error in the transition.. Re constructing...");
  const auto five = TwoStates("", kDownKeys, Loops(5));
  const auto read = Arrow(*five).Route();
  MoveState(*five, kSource, {0, -1});
  EXPECT_EQ(Arrow(*five).Route(), read);
  EXPECT_EQ(boxes.LastFlags(), MB_OK);
}

TEST(Transition, TheMessageOnTheLabelFollows) {
  const struct {
    const char* name;
    RECT rect;
    bool selected;
    POINT by;
  } cases[] = {{"on the label", {35, 27, 45, 33}, false, {0, 2}},
               {"off the label", {36, 27, 46, 33}, false, {0, 0}},
               {"held by the user", {35, 27, 45, 33}, true, {0, 0}}};
  for (const auto& c : cases) {
    const auto chart = TwoStates(MesgRecord(kMesg, kArrow, c.rect));
    auto* mesg = Find<Mesg>(*chart, kMesg);
    EXPECT_EQ(mesg->IsAligned(), c.rect.left == 35) << c.name;
    if (c.selected) chart->GetSelection().Add(mesg);
    const POINT before = mesg->GetCentre();
    MoveState(*chart, kSource, {0, 4});
    EXPECT_EQ(mesg->GetCentre(), before + c.by) << c.name;
  }
}

TEST(Transition, OfSeveralMessagesOneIsItsOwnAndAllDieWithIt) {
  ScriptedMessageBoxes boxes;
  const auto chart =
      TwoStates(MesgRecord(kMesg, kArrow, {1, 1, 9, 9}) + MesgRecord(105, kArrow, {1, 1, 9, 9}) +
                MesgRecord(106, kArrow, {1, 1, 9, 9}));
  EXPECT_EQ(Arrow(*chart).GetMesg(), Find<Mesg>(*chart, 106));
  delete Find<Mesg>(*chart, kMesg);
  EXPECT_EQ(Arrow(*chart).GetMesg(), Find<Mesg>(*chart, 106));
  boxes.Expect(LoadText(IDS_CONFIRM_DELETION), MessageAnswer::No);
  Arrow(*chart).OnCommand(ID_TRANSITION_DELETE);
  EXPECT_EQ(chart->GetModel().Objects().size(), 5U);
  EXPECT_EQ(boxes.LastFlags(), kConfirmFlags);
  boxes.Expect(LoadText(IDS_CONFIRM_DELETION), MessageAnswer::Yes);
  Arrow(*chart).OnCommand(ID_TRANSITION_DELETE);
  EXPECT_EQ(chart->GetModel().Objects().size(), 2U);
}

TEST(Transition, HitsItsBandItsArrowAndItsLabel) {
  const auto chart = TwoStates();
  const Transition& arrow = Arrow(*chart);
  // The vertical link stands at x = 240 px; the tip at y = 300, the label at 180.
  const struct {
    POINT p;
    bool hit;
  } cases[] = {{{236, 100}, true}, {{235, 100}, false}, {{243, 100}, true},  {{244, 100}, false},
               {{235, 180}, true}, {{234, 180}, false}, {{245, 180}, true},  {{246, 180}, false},
               {{233, 289}, true}, {{233, 299}, false}, {{1000, 30}, false}, {{60, 62}, true}};
  for (const auto& c : cases) EXPECT_EQ(arrow.HitTest(c.p), c.hit) << c.p.x << ' ' << c.p.y;
  // The region follows the view before the next paint.
  chart->ApplyZoom();
  chart->SetScrollPos(ScrollBar::Vertical, 60);
  EXPECT_TRUE(arrow.HitTest({236, 40}));
  EXPECT_FALSE(arrow.HitTest({233, 289}));
}

TEST(Transition, ALabelWithoutAPlaceStandsAtTheOrigin) {
  const auto chart = TwoStates("", kDownKeys, "2 10 10 10 11 \n0 10 11 10 12 \n3 10 12 10 13 \n");
  Transition& arrow = Arrow(*chart);
  EXPECT_EQ(arrow.GetLabelRect(), (RECT{-5, -5, 6, 6}));
  EXPECT_TRUE(arrow.HitTest({3, 3}));
  const RECT painted = arrow.GetPaintBounds();
  EXPECT_TRUE(PtInRect(painted, {0, 0}) && PtInRect(painted, {10, 13}));
}

}  // namespace
