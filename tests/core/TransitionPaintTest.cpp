#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

constexpr int kArrow = 103;
constexpr int kMesg = 105;

TEST(TransitionPaint, TheWindowShowsHandlesOfASelectedOne) {
  const auto chart = LoadChart(
      ChartText(TransitionRecord(kArrow, 0, 0, "3 1 1 1", LinkLines("22,14 22,15 22,23 22,24")) +
                MesgRecord(kMesg, kArrow, {1, 1, 9, 9})));
  const FakeWindow window(*chart);
  // The handles, and whether the label has its frame.
  const auto marks = [&](int selected) {
    chart->GetSelection().Clear();
    if (selected != 0) chart->GetSelection().Add(FindShape(*chart, selected));
    std::vector<POINT> handles;
    bool framed = false;
    const Metafile painted = PaintOnScreen(*FindShape(*chart, kArrow));
    for (const Metafile::Record& record : painted.records) {
      if (record.kind != Metafile::Kind::FillRect) continue;
      if (record.brush.colour == 0xFF0000) handles.push_back(TopLeft(record.rect));
      framed = framed || record.brush.colour == 0x00C000;
    }
    return Text(handles) + (framed ? " framed" : "");
  };
  EXPECT_EQ(marks(0), "");
  EXPECT_EQ(marks(kMesg), " framed");
  EXPECT_EQ(marks(kArrow), "130,82 130,112 130,142 framed");
}

}  // namespace

}  // namespace morvane
