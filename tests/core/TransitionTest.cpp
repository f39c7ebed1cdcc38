#include "platform/MessageBox.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

constexpr int kSource = 101;
constexpr int kTarget = 102;
constexpr int kArrow = 103;
constexpr int kMesg = 104;
const std::string kStates =
    StateRecord(kSource, {5, 2, 15, 10}) + StateRecord(kTarget, {35, 50, 45, 60});
/// Between the middle of a bottom side and of a top side.
const std::string kDown = "10,10 10,11 40,11 40,49 40,50";

/// A state above, one below to the right, the transition between them, and what is added.
std::unique_ptr<LayoutMgr> TwoStates(const std::string& more = "",
                                     const std::string& links = LinkLines(kDown),
                                     const std::string& keys = "3 2 1 2") {
  return LoadChart(
      ChartText(kStates + TransitionRecord(kArrow, kSource, kTarget, keys, links) + more));
}

Transition& Arrow(const LayoutMgr& chart) { return *Find<Transition>(chart, kArrow); }
std::string Route(const LayoutMgr& chart) { return Corners(Arrow(chart).Route()); }

void MoveState(const LayoutMgr& chart, int id, POINT by) {
  auto* state = Find<GenericState>(chart, id);
  state->MoveTo(state->GetBounds() + by);
}

TEST(Transition, ConnectsAnchors) {
  const auto chart = LoadChart(ChartText(kStates));
  ModelMgr& model = chart->GetModel();
  auto* from = Find<GenericState>(*chart, kSource);
  auto* to = Find<GenericState>(*chart, kTarget);
  const AnchorKey top{2, SIDE_TOP};
  const AnchorKey right{2, SIDE_RIGHT};
  const AnchorKey bottom{2, SIDE_BOTTOM};
  const POINT drop{360, 240};
  const auto made = [&] {
    return Corners(dynamic_cast<Transition&>(*model.Objects().back()).Route());
  };
  model.ConnectAnchors(from, to, &bottom, &top, nullptr);
  EXPECT_EQ(made(), kDown);
  model.ConnectAnchors(to, to, &right, &top, nullptr);
  EXPECT_EQ(made(), "45,55 46,55 46,49 40,49 40,50");
  model.ConnectAnchors(from, nullptr, &bottom, nullptr, &drop);
  EXPECT_EQ(made(), "10,10 10,11 60,11 60,39 60,40");
  model.ConnectAnchors(to, to, &top, &top, nullptr);
  EXPECT_EQ(model.Objects().size(), 5U);
}

TEST(Transition, BearsADamagedKeyAndADamagedChain) {
  const auto chart = TwoStates("", LinkLines(kDown), "3 77 1 2");
  const std::string before = chart->ModelText();
  EXPECT_NE(before.find("\n3 77 1 2\n"), std::string::npos);
  Arrow(*chart).OnSourceMoved();
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_EQ(Arrow(*chart).GetSource(), Find<GenericState>(*chart, kSource));
  // Without a head it is the free arrow of its points.
  EXPECT_EQ(Route(*TwoStates("", "0 10 11 40 49 \n3 40 49 40 50 \n")), "22,10 22,11 22,17 22,18");
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
  const auto four = TwoStates("", Loops(4));
  MoveState(*four, kSource, {0, -1});
  // Two of the six links of each loop are gone.
  EXPECT_EQ(Arrow(*four).Route().size(), 4U * 4 + 4);
  EXPECT_TRUE(boxes.Shown().empty());

  boxes.Expect("UnRecoverable error in the transition.. Re constructing...");
  const auto five = TwoStates("", Loops(5));
  const auto read = Arrow(*five).Route();
  MoveState(*five, kSource, {0, -1});
  EXPECT_EQ(Arrow(*five).Route(), read);
  EXPECT_EQ(boxes.LastFlags(), MB_OK);
}

TEST(Transition, OfSeveralMessagesOneIsItsOwnAndAllDieWithIt) {
  ScriptedMessageBoxes boxes;
  const RECT rect{1, 1, 9, 9};
  const auto chart = TwoStates(MesgRecord(kMesg, kArrow, rect) + MesgRecord(105, kArrow, rect) +
                               MesgRecord(106, kArrow, rect));
  delete Find<Mesg>(*chart, kMesg);
  EXPECT_EQ(Arrow(*chart).GetMesg(), Find<Mesg>(*chart, 106));
  for (const auto& [answer, left] : {std::pair{MessageAnswer::No, 5U}, {MessageAnswer::Yes, 2U}}) {
    boxes.Expect(LoadText(IDS_CONFIRM_DELETION), answer);
    Arrow(*chart).OnCommand(ID_TRANSITION_DELETE);
    EXPECT_EQ(chart->GetModel().Objects().size(), left);
  }
  EXPECT_EQ(boxes.LastFlags(), kConfirmFlags);
}

TEST(Transition, HitsItsBandItsArrowAndItsLabel) {
  const auto chart = TwoStates();
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

TEST(Transition, ALabelWithoutAPlaceStandsAtTheOrigin) {
  const auto chart = TwoStates("", LinkLines("10,10 10,11 10,12 10,13"));
  EXPECT_EQ(Arrow(*chart).GetLabelRect(), (RECT{-5, -5, 6, 6}));
  EXPECT_TRUE(Arrow(*chart).HitTest({3, 3}));
  const RECT painted = Arrow(*chart).GetPaintBounds();
  EXPECT_TRUE(PtInRect(painted, {0, 0}) && PtInRect(painted, {10, 13}));
}

TEST(Transition, TheCursorTellsWhatAPressWouldDo) {
  const auto chart = TwoStates();
  FakeWindow window(*chart);
  Transition& arrow = Arrow(*chart);
  const struct {
    POINT p;
    bool selected, shift;
    Cursor cursor;
  } cases[] = {{{240, 180}, false, false, Cursor::PlainArrow},
               {{240, 100}, true, false, Cursor::PlainArrow},
               {{240, 100}, true, true, Cursor::ArrowWithCross},
               {{240, 180}, true, true, Cursor::SizeWE},
               {{150, 66}, true, false, Cursor::SizeNS},
               {{60, 60}, true, false, Cursor::DiagonalHandle},
               {{240, 300}, true, false, Cursor::DiagonalHandle}};
  for (const auto& c : cases) {
    chart->GetSelection().Clear();
    if (c.selected) chart->GetSelection().Add(&arrow);
    window.cursorPos = c.p;
    window.shiftDown = c.shift;
    EXPECT_TRUE(arrow.OnSetCursor(chart.get(), 0, 0));
    EXPECT_EQ(window.cursor, c.cursor) << Text({c.p});
  }
}

}  // namespace
