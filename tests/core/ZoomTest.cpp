#include <cmath>

#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

/// A chart in a window of 1200 by 900 pixels, at normal zoom.
class Zoom : public testing::Test {
 protected:
  Zoom() {
    chart->ApplyZoom();
    chart->TakeSnapshot();
  }
  /// The place of the chart under a client point, model units.
  double At(ScrollBar bar, std::int32_t client) const {
    return (chart->GetScrollPos(bar) + client) / static_cast<double>(chart->GetZoom());
  }
  std::int32_t ZoomInText() const {
    return std::stoi(chart->ModelText().substr(chart->ModelText().find('\n')));
  }

  std::unique_ptr<LayoutMgr> chart =
      LoadChart(ChartText(StateRecord(1, {10, 10, 30, 30}) + StateRecord(2, {700, 800, 740, 840})));
  FakeWindow window{*chart};
};

TEST_F(Zoom, KeepsWhatIsUnderThePointerAndComesBackToWhereItWas) {
  for (const POINT pointer : {POINT{600, 450}, POINT{0, 0}, POINT{1199, 3}, POINT{731, 517}}) {
    chart->ChangeZoom(6);
    chart->ScrollTo({3000, 2400});
    const POINT first = chart->GetScrollPosition();
    const double x = At(ScrollBar::Horizontal, pointer.x);
    const double y = At(ScrollBar::Vertical, pointer.y);
    for (const int step : {1, 1, 5, -3, -7, 2, 1}) {
      chart->OnZoom(step, pointer);
      EXPECT_NEAR(At(ScrollBar::Horizontal, pointer.x), x, 0.51) << chart->GetZoom();
      EXPECT_NEAR(At(ScrollBar::Vertical, pointer.y), y, 0.51) << chart->GetZoom();
      EXPECT_EQ(chart->GetScrollPos(ScrollBar::Horizontal) % chart->GetZoom(), 0);
    }
    EXPECT_EQ(chart->GetZoom(), 6);
    EXPECT_EQ(chart->GetScrollPosition(), first);
  }
}

TEST_F(Zoom, FitsWhatThereIsAndStoresNoZoomBelowTheLeast) {
  chart->OnCommand(ID_ZOOM_FIT);
  EXPECT_EQ(chart->GetZoom(), 1);
  EXPECT_EQ(ZoomInText(), 6);
  EXPECT_FALSE(chart->OnUpdateCommand(ID_ZOOM_OUT).enabled);
  chart->OnZoom(-3, {5, 5});
  EXPECT_EQ(chart->GetZoom(), 1);
  // What is done there goes back without another zoom.
  chart->GetProperties().Author = "Somebody";
  chart->TakeSnapshot();
  chart->OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(chart->GetZoom(), 1);
  chart->GetModel().SelectOnly(FindShape(*chart, 2));
  chart->OnCommand(ID_ZOOM_SELECTION);
  EXPECT_EQ(chart->GetZoom(), 13);
  EXPECT_EQ(ZoomInText(), 13);
  const RECT shown = chart->ToClient(FindShape(*chart, 2)->GetBounds());
  EXPECT_NEAR(CentreOf(shown).x, 600, 13);
  EXPECT_NEAR(CentreOf(shown).y, 450, 13);
  chart->OnCommand(ID_ZOOM_LEVEL + 4);
  EXPECT_EQ(chart->GetZoom(), 4);
  EXPECT_TRUE(chart->OnUpdateCommand(ID_ZOOM_LEVEL + 4).checked);
}

/// A window whose wheel turns while a gesture waits for its next message.
class WheelWindow : public FakeWindow {
 public:
  explicit WheelWindow(LayoutMgr& chart) : FakeWindow(chart), chart(chart) {}
  Message NextMessage() override {
    if (!std::exchange(hasTurned, true)) chart.OnWheel(ScrollBar::Vertical, -240);
    return FakeWindow::NextMessage();
  }

 private:
  LayoutMgr& chart;
  bool hasTurned = false;
};

TEST_F(Zoom, AGestureGoesOnWhereTheWheelTakesTheChart) {
  struct {
    POINT press;
    POINT drop;
    RECT state;  ///< of the first one, behind the gesture
    std::size_t objects;
  } const cases[] = {
      {{120, 120}, {120, 150}, {10, 35, 30, 55}, 2U},  // 30 pixels by hand and 120 by the wheel
      {{178, 120}, {480, 300}, {10, 10, 30, 30}, 3U},  // a connection from the right anchor
      {{300, 60}, {900, 240}, {10, 10, 30, 30}, 2U},   // a rubber band
  };
  for (const auto& each : cases) {
    const auto drawn = LoadChart(chart->ModelText());
    drawn->ApplyZoom();
    WheelWindow wheel(*drawn);
    drawn->OnMouseMove(0, each.press);
    wheel.Move(each.drop);
    wheel.Release(each.drop);
    drawn->OnLButtonDown(MK_LBUTTON, each.press);
    EXPECT_EQ(drawn->GetScrollPosition(), (POINT{0, 120})) << each.press.x;
    EXPECT_EQ(FindShape(*drawn, 1)->GetBounds(), each.state) << each.press.x;
    ASSERT_EQ(drawn->GetModel().Objects().size(), each.objects) << each.press.x;
    if (each.objects == 2) continue;
    const auto& route = dynamic_cast<Transition&>(*drawn->GetModel().Objects().back());
    EXPECT_EQ(route.Route().front().start, (POINT{30, 20}));
    EXPECT_EQ(route.Route().back().end, (POINT{80, 70}));
    // The mark at its beginning is gone.
    EXPECT_EQ(wheel.Feedback(), 0U);
  }
}

TEST(PaintedBorder, AnArrowTouchesItOnEachSideAndKeepsItsProportion) {
  struct {
    const char* keys;
    const char* route;
    POINT tip;      ///< the edge of the painted border, logical units
    POINT outside;  ///< the pixel at that edge is not a part of it
  } const cases[] = {{"2 2 4 2", "60,20 61,20 99,20 100,20", {600, 120}, {0, 0}},
                     {"4 2 2 2", "160,20 159,20 131,20 130,20", {778, 120}, {1, 0}},
                     {"3 2 1 2", "115,3 115,4 115,9 115,10", {690, 60}, {0, 0}},
                     {"1 2 3 2", "115,60 115,59 115,31 115,30", {690, 178}, {0, 1}}};
  for (const auto& each : cases) {
    for (int zoom = 2; zoom <= 13; ++zoom) {
      const auto chart =
          LoadChart(ChartText(StateRecord(1, {100, 10, 130, 30}) +
                              TransitionRecord(2, 0, 1, each.keys, LinkLines(each.route))));
      chart->ChangeZoom(zoom);
      NullDC reference;
      CMetaFileDC dc(reference);
      dynamic_cast<Transition&>(*FindShape(*chart, 2)).DrawRoute(&dc, nullptr);
      const std::vector<Metafile::Record> records = dc.Close().records;
      // The head is the last: from a side to the tip, and on to the other side.
      const std::vector<POINT>& to = records.at(records.size() - 2).points;
      const std::vector<POINT> head{to.front(), to.back(), records.back().points.back()};
      const POINT tip = head[1];
      EXPECT_NEAR(tip.x, each.tip.x * zoom / 6.0 - each.outside.x, 0.51)
          << each.keys << " at " << zoom;
      EXPECT_NEAR(tip.y, each.tip.y * zoom / 6.0 - each.outside.y, 0.51)
          << each.keys << " at " << zoom;
      const POINT across = head[2] - head[0];
      const double length =
          std::hypot(tip.x - (head[0].x + head[2].x) / 2.0, tip.y - (head[0].y + head[2].y) / 2.0);
      EXPECT_NEAR(std::hypot(across.x, across.y) / length, 2.0 / 3, 0.17) << zoom;
    }
  }
}

}  // namespace

}  // namespace morvane
