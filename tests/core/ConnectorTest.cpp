#include "platform/MessageBox.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

constexpr int kSource = 101;
constexpr int kTarget = 102;
constexpr int kArrow = 103;

/// A state above, one below to the right, and the transition between them.
std::unique_ptr<LayoutMgr> TwoStates(const std::string& links) {
  return LoadChart(ChartText(StateRecord(kSource, {5, 2, 15, 10}) +
                             StateRecord(kTarget, {35, 50, 45, 60}) +
                             TransitionRecord(kArrow, kSource, kTarget, "3 2 1 2", links)));
}

Transition& Arrow(const LayoutMgr& chart) { return *Find<Transition>(chart, kArrow); }

void MoveSourceUp(const LayoutMgr& chart) {
  auto* state = Find<GenericState>(chart, kSource);
  state->MoveTo(state->GetBounds() + POINT{0, -1});
}

/// A route with so many loops, each of which crosses itself once.
std::string Loops(int count) {
  std::vector<POINT> corners = Points("10,10 10,11");
  const auto go = [&](const std::string& steps) {
    for (const POINT by : Points(steps)) corners.push_back(corners.back() + by);
  };
  for (int i = 0; i < count; ++i) go("6,0 0,4 -3,0 0,-10 6,0 0,6");
  go("3,0 0,9 0,1");
  return LinkLines(Text(corners));
}

TEST(Transition, CutsOutFourLoopsAndGivesUpAtFive) {
  ScriptedMessageBoxes boxes;
  const auto four = TwoStates(Loops(4));
  MoveSourceUp(*four);
  // Two of the six links of each loop are gone.
  EXPECT_EQ(Arrow(*four).Route().size(), 4U * 4 + 4);
  EXPECT_TRUE(boxes.Shown().empty());

  boxes.Expect("UnRecoverable error in the transition.. Re constructing...");
  const auto five = TwoStates(Loops(5));
  const auto read = Arrow(*five).Route();
  MoveSourceUp(*five);
  EXPECT_EQ(Arrow(*five).Route(), read);
  EXPECT_TRUE(boxes.Shown().empty()) << "the box waits until the chart is whole";
  MoveSourceUp(*five);
  five->TakeSnapshot();
  EXPECT_EQ(boxes.LastFlags(), MB_OK);
}

TEST(Transition, HitsItsBandItsArrowAndItsLabel) {
  const auto chart = TwoStates(LinkLines("10,10 10,11 40,11 40,49 40,50"));
  const Transition& arrow = Arrow(*chart);
  // The vertical link stands at x = 240 px; the tip at y = 300, the label at 180.
  for (const POINT p : Points("236,100 243,100 235,180 245,180 233,289 60,62")) {
    EXPECT_TRUE(arrow.HitTest(p)) << Text({p});
  }
  for (const POINT p : Points("235,100 244,100 234,180 246,180 233,299 1000,30")) {
    EXPECT_FALSE(arrow.HitTest(p)) << Text({p});
  }
  // The region follows the view before the next paint.
  chart->ApplyZoom();
  chart->SetScrollPos(ScrollBar::Vertical, 60);
  EXPECT_TRUE(arrow.HitTest({236, 40}));
  EXPECT_FALSE(arrow.HitTest({233, 289}));
}

TEST(Transition, ALabelStandsOnALinkOfAnyLength) {
  const auto chart = TwoStates(LinkLines("10,10 10,11 10,12 10,13"));
  EXPECT_EQ(Arrow(*chart).GetLabelRect(), (RECT{55, 61, 66, 72}));
  EXPECT_TRUE(Arrow(*chart).HitTest({55, 71}));
  EXPECT_FALSE(Arrow(*chart).HitTest({3, 3}));
}

TEST(Line, HitsItsBandAndItsEnds) {
  const auto chart = LoadChart(ChartText(LineRecord(1, 0, 0, "1 1 1 1")));  // (40,40) to (60,60)
  for (const POINT p : Points("302,297 237,237 242,237 362,362")) {
    EXPECT_TRUE(FindShape(*chart, 1)->HitTest(p)) << p.x;
  }
  for (const POINT p : Points("306,297 236,236 363,363 999,20")) {
    EXPECT_FALSE(FindShape(*chart, 1)->HitTest(p)) << p.x;
  }
}

/// A resize on the label puts it back there, and a press can come before that is painted.
TEST(Mesg, IsFoundWhereItIsBeforeItIsPaintedThere) {
  const auto chart = LoadChart(ChartText(
      TransitionRecord(kArrow, 0, 0, "3 2 1 2", LinkLines("10,10 10,11 40,11 40,49 40,50")) +
      MesgRecord(1, kArrow, {35, 27, 45, 33})));
  FakeWindow window(*chart);
  chart->GetModel().SelectOnly(FindShape(*chart, 1));
  window.Move({329, 197});
  window.Release({329, 197});
  chart->OnLButtonDown(MK_LBUTTON, {269, 197});
  window.Move({272, 244});
  window.Release({272, 244});
  chart->OnLButtonDown(MK_LBUTTON, {200, 172});
  EXPECT_EQ(FindShape(*chart, 1)->GetBounds(), (RECT{42, 39, 62, 45}));
}

TEST(Note, HasNoAnchorAtItsFold) {
  const auto chart = LoadChart(ChartText(NoteRecord(1, {40, 10, 52, 16}, Block(""))));
  const Note& note = *Find<Note>(*chart, 1);
  EXPECT_EQ(note.GetAnchors().size(), 7U);
  EXPECT_EQ(*note.AnchorAt({3, SIDE_BOTTOM}), (POINT{40, 16}));
  for (const auto& [key, point] : note.GetAnchors()) EXPECT_NE(point, (POINT{52, 10}));
}

}  // namespace

}  // namespace morvane
