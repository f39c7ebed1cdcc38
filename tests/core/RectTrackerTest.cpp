#include "platform/CRectTracker.h"
#include "tests/support/ChartTest.h"

namespace {

/// Two states at zoom 6; the first one is (20,20)-(40,40), 120 to 240 in pixels.
class RectDrag : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(window.Feedback(), 0U) << "a stray frame stayed on the screen";
    EXPECT_FALSE(window.HasCapture());
  }
  void Queue(const std::vector<POINT>& way, POINT from) {
    for (const POINT p : way) window.Move(p);
    window.Release(way.empty() ? from : way.back());
  }
  /// Drags the first state; the first press selects it.
  RECT Drag(POINT from, const std::vector<POINT>& way) {
    Queue(way, from);
    State().OnLButtonDown(0, from.x, from.y);
    return State().GetBounds();
  }
  GenericState& State(int id = 101) { return *Find<GenericState>(*chart, id); }

  std::unique_ptr<LayoutMgr> chart =
      LoadChart(ChartText(StateRecord(101, {20, 20, 40, 40}) + StateRecord(102, {60, 20, 70, 30})));
  FakeWindow window{*chart};
};

TEST_F(RectDrag, MovesResizesAndStaysOnTheChart) {
  const struct {
    const char* name;
    POINT from;
    std::vector<POINT> way;
    RECT result;
  } cases[] = {{"a click", {181, 181}, {}, {20, 20, 40, 40}},
               {"a move", {181, 181}, {{190, 190}, {200, 170}}, {23, 18, 43, 38}},
               {"off the chart", {200, 170}, {{-900, -900}}, {1, 1, 21, 21}},
               {"and back", {66, 66}, {{180, 180}}, {20, 20, 40, 40}},
               {"bottom right corner", {238, 238}, {{257, 269}}, {20, 20, 43, 45}},
               {"right side", {256, 195}, {{238, 0}}, {20, 20, 40, 45}},
               {"bottom side, at least four units", {180, 268}, {{180, 121}}, {20, 20, 40, 24}},
               {"top left corner", {121, 121}, {{109, 109}}, {18, 18, 40, 24}}};
  for (const auto& c : cases) EXPECT_EQ(Drag(c.from, c.way), c.result) << c.name;
  EXPECT_EQ(window.MostFeedback(), 4U);
}

/// A key that the drag doesn't take may not delete the shape under its hands.
TEST_F(RectDrag, GivesUpOnAnyKeyRightButtonAndLostMouse) {
  window.SetCapture();
  State().OnLButtonDown(0, 181, 181);
  EXPECT_TRUE(window.HasCapture()) << "a window that holds the mouse already starts no drag";
  window.ReleaseCapture();
  const std::function<void()> ends[] = {[&] { window.Key(VirtualKey::Escape); },
                                        [&] { window.Key(VirtualKey::Delete); },
                                        [&] {
                                          window.Post(Message::Kind::RButtonDown, {200, 200});
                                        },
                                        [] {}};
  for (const auto& end : ends) {
    window.Move({200, 200});
    end();
    State().OnLButtonDown(0, 181, 181);
    EXPECT_EQ(State().GetBounds(), (RECT{20, 20, 40, 40}));
  }
}

TEST_F(RectDrag, TheOtherSelectedShapesGoAlongInAMoveAlone) {
  chart->GetSelection().Add(&State(102));
  Drag({181, 181}, {{200, 200}, {199, 187}});
  EXPECT_EQ(State(102).GetBounds(), (RECT{63, 21, 73, 31}));
  EXPECT_EQ(window.MostFeedback(), 8U);
  // By its top left handle, a resize.
  EXPECT_EQ(Drag({140, 128}, {{140, 110}}), (RECT{23, 18, 43, 41}));
  EXPECT_EQ(State(102).GetBounds(), (RECT{63, 21, 73, 31}));
}

TEST_F(RectDrag, ARubberBandGrowsInAnyDirection) {
  const std::pair<std::vector<POINT>, RECT> cases[] = {{{{150, 160}}, {100, 100, 150, 160}},
                                                       {{{40, 60}}, {40, 60, 100, 100}},
                                                       {{{150, 160}, {130, 100}}, {}},
                                                       {{}, {}}};
  for (const auto& [way, rect] : cases) {
    Queue(way, {100, 100});
    CRectTracker band(0);
    const bool made = band.TrackRubberBand(*chart, {100, 100});
    EXPECT_EQ(made ? band.GetTrueRect() : RECT{}, rect);
  }
}

}  // namespace
