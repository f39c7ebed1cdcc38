#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

constexpr int kArrow = 103;

/// From the bottom of one state to the top of another, with a third state and an initial state
/// beside them. Device pixels are six to a model unit.
class TransitionDrag : public testing::Test {
 protected:
  TransitionDrag() { Open(); }
  void Open(const std::string& zoom = "6") {
    const std::string links = LinkLines("10,10 10,11 40,11 40,49 40,50");
    window.reset();
    chart = LoadChart(
        ChartText(StateRecord(101, {5, 2, 15, 10}) + StateRecord(102, {35, 50, 45, 60}) +
                      StateRecord(105, {60, 2, 70, 10}) + InitialRecord(106, {60, 40, 64, 44}) +
                      TransitionRecord(kArrow, 101, 102, "3 2 1 2", links),
                  "9999 4 1", zoom));
    window = std::make_unique<FakeWindow>(*chart);
    arrow = Find<Transition>(*chart, kArrow);
    before = chart->ModelText();
  }
  void TearDown() override {
    EXPECT_TRUE(window->IsDrained());
    EXPECT_FALSE(window->HasCapture());
    EXPECT_EQ(window->Feedback(), 0U) << "a stray stroke stayed on the screen";
  }
  void Drag(POINT from, const std::vector<POINT>& way, unsigned flags = 0) {
    for (const POINT p : way) window->Move(p);
    window->Release(way.empty() ? from : way.back());
    arrow->OnLButtonDown(flags, from.x, from.y);
  }
  std::string Route() const { return Corners(arrow->Route()); }

  std::unique_ptr<LayoutMgr> chart;
  std::unique_ptr<FakeWindow> window;
  Transition* arrow = nullptr;
  std::string before;
};

TEST_F(TransitionDrag, AnEndSnapsToAnAnchorOrIsFree) {
  Drag({61, 62}, {{200, 100}, {391, 57}});
  EXPECT_EQ(arrow->GetSource(), Find<GenericState>(*chart, 105));
  EXPECT_EQ(Route(), "65,10 65,11 40,11 40,49 40,50");
  EXPECT_TRUE(Find<GenericState>(*chart, 101)->GetOutgoing().empty());
  EXPECT_TRUE(arrow->IsInSelection());
  EXPECT_EQ(window->MostFeedback(), 2U) << "the rubber line and the mark on the anchor";
  Drag({390, 60}, {{303, 121}});
  EXPECT_EQ(arrow->GetSource(), nullptr);
  EXPECT_EQ(Route(), "51,20 51,21 40,21 40,49 40,50");
  // On a state, but beside every anchor; on an initial state, which takes no tail.
  Drag({240, 300}, {{390, 40}});
  EXPECT_EQ(arrow->GetTarget(), nullptr);
  EXPECT_EQ(arrow->Route().back().end, (POINT{65, 7}));
  Drag({390, 42}, {{372, 241}});
  EXPECT_EQ(arrow->GetTarget(), nullptr);
  EXPECT_EQ(arrow->Route().back().end, (POINT{62, 40}));
  Drag({372, 240}, {{390, 12}});
  EXPECT_EQ(arrow->GetTarget(), Find<GenericState>(*chart, 105));
}

TEST_F(TransitionDrag, EscapeALostMouseAndAClickChangeNothing) {
  for (const char* zoom : {"2", "6", "13"}) {
    Open(zoom);
    const POINT handle = arrow->ToClient({10, 10}) + POINT{2, 2};
    window->Move({300, 100});
    window->Key(VirtualKey::Escape);
    arrow->OnLButtonDown(0, handle.x, handle.y);
    EXPECT_EQ(window->MostFeedback(), 1U);
    arrow->OnLButtonDown(0, handle.x, handle.y);
    Drag(handle, {});
    EXPECT_EQ(chart->ModelText(), before) << "zoom " << zoom;
  }
}

TEST_F(TransitionDrag, ASegmentMovesAcrossItsDirection) {
  Drag({240, 180}, {{280, 100}, {302, 90}});
  EXPECT_EQ(Route(), "10,10 10,11 50,11 50,49 40,49 40,50");
  EXPECT_EQ(window->MostFeedback(), 3U);
  // Back on its old place: no change.
  before = chart->ModelText();
  Drag({300, 180}, {{310, 100}, {300, 100}});
  EXPECT_EQ(chart->ModelText(), before);
}

TEST_F(TransitionDrag, OnlyWithShiftAndAMoveTheSelectionMovesAsOne) {
  arrow->OnLButtonDown(0, 237, 100);
  EXPECT_TRUE(arrow->IsInSelection());
  Drag({237, 100}, {}, MK_SHIFT);
  EXPECT_EQ(chart->ModelText(), before);
  chart->GetSelection().Add(FindShape(*chart, 101));
  Drag({237, 100}, {{240, 130}, {243, 112}}, MK_SHIFT);
  EXPECT_EQ(Route(), "11,12 11,13 41,13 41,51 41,52");
  EXPECT_EQ(FindShape(*chart, 101)->GetBounds(), (RECT{6, 4, 16, 12}));
  EXPECT_NE(arrow->GetSource(), nullptr);
  EXPECT_EQ(arrow->GetTarget(), nullptr);
  EXPECT_GT(window->MostFeedback(), 5U);
}

/// Pressed and dropped on an initial state, which takes no end: the button is up by then, and what
/// the pointer does afterwards drags nothing.
TEST_F(TransitionDrag, AConnectionThatComesToNothingOnlySelects) {
  const POINT press{372, 241};
  for (const POINT drop : {press, POINT{362, 252}}) {
    Open();
    chart->OnMouseMove(0, press);
    window->Move(drop);
    window->Release(drop);
    window->Move({500, 500});
    chart->OnLButtonDown(MK_LBUTTON, press);
    EXPECT_EQ(window->NextMessage().point, (POINT{500, 500})) << drop.x;
    chart->OnMouseLeave();
    EXPECT_EQ(chart->ModelText(), before) << drop.x;
    EXPECT_TRUE(FindShape(*chart, 106)->IsInSelection()) << drop.x;
  }
}

/// A tool that is placed by a click is placed on whatever lies there.
TEST_F(TransitionDrag, AToolIsPlacedOnAHandleToo) {
  for (const POINT place : {POINT{60, 60}, POINT{240, 180}, POINT{240, 300}}) {
    Open();
    chart->OnCommand(ID_TOOL_NOTE);
    window->Release({500, 500});
    chart->OnLButtonDown(MK_LBUTTON, place);
    EXPECT_EQ(window->NextMessage().kind, Message::Kind::LButtonUp) << "no tracker takes it";
    chart->OnLButtonUp(0, place);
    EXPECT_EQ(TopLeft(chart->GetModel().Objects().back()->GetBounds()), chart->ToModel(place));
    EXPECT_EQ(chart->GetTool(), 0U);
  }
}

TEST_F(TransitionDrag, TheCursorTellsWhatAPressWouldDo) {
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
    if (c.selected) chart->GetSelection().Add(arrow);
    window->cursorPos = c.p;
    window->shiftDown = c.shift;
    EXPECT_TRUE(arrow->OnSetCursor(chart.get(), 0, 0));
    EXPECT_EQ(window->cursor, c.cursor) << Text({c.p});
  }
}

}  // namespace
