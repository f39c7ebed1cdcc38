#include "connectors/RoutePainter.h"
#include "model/DrawResources.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

using Records = std::vector<Metafile::Record>;

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

Records PaintRoute(const std::string& corners) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  RoutePainter(dc, [](POINT p) { return POINT{p.x * 10, p.y * 10}; }).Paint(Points(corners));
  return dc.Close().records;
}

TEST(TransitionPaint, InnerCornersAreRounded) {
  // Up to three links, nothing is. The arrow is as wide as ever and twice as long as the stub.
  EXPECT_EQ(Strokes(PaintRoute("0,0 0,1 0,5 0,6")),
            "0,0 0,10\n0,10 0,50\n0,50 0,60\n-4,40 0,60\n0,60 4,40\n");
  EXPECT_EQ(Strokes(PaintRoute("0,0 0,1 0,5 5,5 6,5")),
            "0,0 0,10\n0,10 0,40\narc 0,30 20,50 from 0,40 10,50\n10,50 50,50\n50,50 60,50\n"
            "40,46 60,50\n60,50 40,54\n");
  // A leg of one unit leaves the corner sharp.
  EXPECT_EQ(Strokes(PaintRoute("0,0 0,1 0,2 5,2 6,2")).find("arc"), std::string::npos);
}

TEST(TransitionPaint, ACornerIsAQuarterOfAnEllipseCounterClockwise) {
  // The ends and the corner between them, and the arc.
  const struct {
    std::string way, arc;
  } cases[] = {{"-6,0 0,0 0,6", "arc -12,0 0,12 from 0,6 -6,0\n"},
               {"0,6 0,0 -6,0", "arc -12,0 0,12 from 0,6 -6,0\n"},
               {"-6,0 0,0 0,-6", "arc -12,-12 0,0 from -6,0 0,-6\n"},
               {"6,0 0,0 0,6", "arc 0,0 12,12 from 6,0 0,6\n"},
               {"6,0 0,0 0,-6", "arc 0,-12 12,0 from 0,-6 6,0\n"},
               {"-6,0 0,0 0,0", "-6,0 0,0\n"},
               {"-6,0 0,0 6,0", ""}};
  for (const auto& c : cases) {
    CNullDC reference;
    CMetaFileDC dc(reference);
    const std::vector<POINT> way = Points(c.way);
    RoutePainter::DrawCorner(dc, way[0], way[1], way[2]);
    EXPECT_EQ(Strokes(dc.Close().records), c.arc) << c.way;
  }
}

/// Paints no more than shows in a small window.
class SmallDC : public CMetaFileDC {
 public:
  using CMetaFileDC::CMetaFileDC;
  RECT GetClipBox() const override { return {0, 0, 100, 100}; }
};

TEST(TransitionPaint, SkipsWhatDoesNotShow) {
  std::vector<POINT> route{{0, 0}, {0, 1}};
  for (int i = 1; i < 1000; ++i)
    route.insert(route.end(), {{i * 5, i * 5 - 4}, {i * 5, i * 5 + 1}});
  CNullDC reference;
  SmallDC dc(reference);
  RoutePainter(dc, [](POINT p) { return POINT{p.x * 10, p.y * 10}; }).Paint(route);
  const std::size_t painted = dc.Close().records.size();
  EXPECT_GE(painted, 6U);
  EXPECT_LE(painted, 16U);
}

constexpr int kArrow = 103;

std::unique_ptr<LayoutMgr> Chart() { return LoadChart(SmallChart()); }

TEST(TransitionPaint, ThePenTellsWhetherAnEndIsFree) {
  const auto chart = Chart();
  auto& arrow = *Find<Transition>(*chart, kArrow);
  const auto pens = [&] {
    CNullDC reference;
    CMetaFileDC screen(reference);
    arrow.DrawRoute(&screen, nullptr);
    CMetaFileDC page(reference);
    page.SetPrinting(true);
    arrow.Draw(&page);
    return std::pair{screen.Close().records[0].pen, page.Close().records[0].pen};
  };
  EXPECT_EQ(pens(), (std::pair{CPen{PenStyle::Solid, 0, 0xFF8000}, CPen{PenStyle::Solid, 0, 0}}));
  delete Find<GenericState>(*chart, 102);
  EXPECT_EQ(pens(),
            (std::pair{CPen{PenStyle::DashDotDot, 0, 0x0000FF}, CPen{PenStyle::DashDotDot, 0, 0}}));
}

TEST(TransitionPaint, PaperHasLogicalUnitsAndNoMarks) {
  const auto chart = Chart();
  auto& arrow = *Find<Transition>(*chart, kArrow);
  chart->GetSelection().Add(&arrow);
  chart->ApplyZoom();
  chart->SetScrollPos(ScrollBar::Vertical, 60);
  FakeWindow window(*chart);
  CNullDC reference;
  CMetaFileDC page(reference);
  page.SetPrinting(true);
  arrow.Draw(&page);
  EXPECT_EQ(Strokes(page.Close().records),
            "132,84 132,90\n132,90 132,138\n132,138 132,144\n128,132 132,144\n132,144 136,132\n");
  EXPECT_TRUE(window.Painted().empty());
}

TEST(TransitionPaint, TheWindowShowsHandlesOfASelectedOne) {
  const auto chart =
      LoadChart(ChartText(TransitionRecord(kArrow, 0, 0, "3 1 1 1",
                                           "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n") +
                          MesgRecord(104, kArrow, {1, 1, 9, 9})));
  auto& arrow = *Find<Transition>(*chart, kArrow);
  FakeWindow window(*chart);
  const auto fills = [&] {
    window.ForgetPainted();
    CNullDC dc;
    arrow.Draw(&dc);
    std::vector<RECT> handles;
    int frame = 0;
    for (const Metafile::Record& record : window.Painted()) {
      if (record.kind != Metafile::Kind::FillRect) continue;
      if (record.brush.color == 0xFF0000) handles.push_back(record.rect);
      if (record.brush.color == 0x00C000) ++frame;
    }
    return std::pair{handles, frame != 0};
  };
  EXPECT_EQ(fills(), (std::pair{std::vector<RECT>{}, false}));
  chart->GetSelection().Add(Find<Shape>(*chart, 104));
  EXPECT_EQ(fills(), (std::pair{std::vector<RECT>{}, true}));
  chart->GetSelection().Clear();
  chart->GetSelection().Add(&arrow);
  EXPECT_EQ(
      fills(),
      (std::pair{std::vector<RECT>{{130, 82, 135, 87}, {130, 112, 135, 117}, {130, 142, 135, 147}},
                 true}));
}

}  // namespace
