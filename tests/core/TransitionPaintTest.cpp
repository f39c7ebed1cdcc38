#include "connectors/RoutePainter.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

using Records = std::vector<Metafile::Record>;

constexpr int kArrow = 103;
constexpr int kMesg = 105;

/// What is painted: each line as its points, each arc as the corners of its box, start and end.
std::string Strokes(const Records& records) {
  std::string strokes;
  for (const Metafile::Record& record : records) {
    if (record.kind == Metafile::Kind::Polyline) strokes += Text(record.points) + "\n";
    if (record.kind != Metafile::Kind::Arc) continue;
    strokes += "arc " + Text({TopLeft(record.rect), BottomRight(record.rect)}) + " from " +
               Text(record.points) + "\n";
  }
  return strokes;
}

Records PaintRoute(const std::vector<POINT>& route) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  RoutePainter(dc, [](POINT p) { return POINT{p.x * 10, p.y * 10}; }).Paint(route);
  return dc.Close().records;
}

/// The arrow is as wide as ever and twice as long as the stub.
TEST(TransitionPaint, InnerCornersAreRounded) {
  EXPECT_EQ(Strokes(PaintRoute(Points("0,0 0,1 0,5 5,5 6,5"))),
            "0,0 0,10\n0,10 0,40\narc 0,30 20,50 from 0,40 10,50\n10,50 50,50\n50,50 60,50\n"
            "40,46 60,50\n60,50 40,54\n");
  // A leg of one unit leaves the corner sharp.
  EXPECT_EQ(Strokes(PaintRoute(Points("0,0 0,1 0,2 5,2 6,2"))).find("arc"), std::string::npos);
}

TEST(TransitionPaint, ThePenTellsWhetherAnEndIsFree) {
  const auto chart = LoadChart(SmallChart());
  auto& arrow = *Find<Transition>(*chart, kArrow);
  const auto pens = [&] {
    const FakeWindow window(*chart);
    CNullDC dc;
    arrow.Draw(&dc);
    return std::pair{window.Painted()[0].pen, PaintOnPaper(arrow).records[0].pen};
  };
  EXPECT_EQ(pens(), (std::pair{CPen{PenStyle::Solid, 0, 0xFF8000}, CPen{PenStyle::Solid, 0, 0}}));
  delete Find<GenericState>(*chart, 102);
  const PenStyle dashes = PenStyle::DashDotDot;
  EXPECT_EQ(pens(), (std::pair{CPen{dashes, 0, 0x0000FF}, CPen{dashes, 0, 0}}));
}

TEST(TransitionPaint, PaperHasLogicalUnitsAndNoMarks) {
  const auto chart = LoadChart(SmallChart());
  auto& arrow = *Find<Transition>(*chart, kArrow);
  chart->GetSelection().Add(&arrow);
  chart->ApplyZoom();
  chart->SetScrollPos(ScrollBar::Vertical, 60);
  const FakeWindow window(*chart);
  EXPECT_EQ(Strokes(PaintOnPaper(arrow).records),
            "132,84 132,90\n132,90 132,138\n132,138 132,144\n128,132 132,144\n132,144 136,132\n");
  EXPECT_TRUE(window.Painted().empty());
}

TEST(TransitionPaint, TheWindowShowsHandlesOfASelectedOne) {
  const auto chart = LoadChart(
      ChartText(TransitionRecord(kArrow, 0, 0, "3 1 1 1", LinkLines("22,14 22,15 22,23 22,24")) +
                MesgRecord(kMesg, kArrow, {1, 1, 9, 9})));
  FakeWindow window(*chart);
  // The handles, and whether the label has its frame.
  const auto marks = [&](int selected) {
    chart->GetSelection().Clear();
    if (selected != 0) chart->GetSelection().Add(FindShape(*chart, selected));
    window.ForgetPainted();
    CNullDC dc;
    FindShape(*chart, kArrow)->Draw(&dc);
    std::vector<POINT> handles;
    bool framed = false;
    for (const Metafile::Record& record : window.Painted()) {
      if (record.kind != Metafile::Kind::FillRect) continue;
      if (record.brush.color == 0xFF0000) handles.push_back(TopLeft(record.rect));
      framed = framed || record.brush.color == 0x00C000;
    }
    return Text(handles) + (framed ? " framed" : "");
  };
  EXPECT_EQ(marks(0), "");
  EXPECT_EQ(marks(kMesg), " framed");
  EXPECT_EQ(marks(kArrow), "130,82 130,112 130,142 framed");
}

}  // namespace
