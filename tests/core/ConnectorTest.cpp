#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

TEST(Transition, HitsItsBandItsArrowAndItsLabel) {
  const auto chart = LoadChart(
      ChartText(TransitionRecord(1, 0, 0, "3 2 1 2", LinkLines("10,10 10,11 40,11 40,49 40,50"))));
  const Transition& arrow = *Find<Transition>(*chart, 1);
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

TEST(Line, HitsItsBandAndItsEnds) {
  const auto chart = LoadChart(ChartText(LineRecord(1, 0, 0, "1 1 1 1")));  // (40,40) to (60,60)
  for (const POINT p : Points("302,297 237,237 242,237 362,362")) {
    EXPECT_TRUE(FindShape(*chart, 1)->HitTest(p)) << p.x;
  }
  for (const POINT p : Points("306,297 236,236 363,363 999,20")) {
    EXPECT_FALSE(FindShape(*chart, 1)->HitTest(p)) << p.x;
  }
}

}  // namespace

}  // namespace morvane
