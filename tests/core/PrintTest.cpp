#include "dialogs/PrinterSetup.h"
#include "platform/ViewPages.h"
#include "tests/support/ChartTest.h"
#include "tests/support/ScriptedPrinting.h"

namespace {

class Print : public testing::Test {
 protected:
  /// A chart whose one state ends at a model point.
  static std::unique_ptr<LayoutMgr> ChartTo(POINT corner) {
    return LoadChart(ChartText(StateRecord(1, {corner.x - 20, corner.y - 15, corner.x, corner.y})));
  }
  void PrintToFit(LayoutMgr& chart) {
    host.Expect("Print Setup", [](CDialog& dialog) {
      ScriptedDialogHost::Toggle(dialog, PrinterSetup::IDC_PRINT_TO_FIT);
      ScriptedDialogHost::Press(dialog, IDOK);
    });
    chart.OnCommand(ID_FILE_PRINT_SETUP);
  }
  const std::vector<ScriptedPrinting::Page>& Pages() { return printing.documents.back().pages; }

  ScriptedPrinting printing;
  ScriptedDialogHost host;
  ScriptedMessageBoxes boxes;
};

TEST_F(Print, TheExtentDividesIntoPages) {
  const struct {
    POINT corner;
    SIZE millimetres;
    SIZE pixels;
    SIZE pages;
  } cases[] = {{{300, 100}, {210, 297}, {4960, 7016}, {2, 1}},
               {{100, 100}, {210, 297}, {4960, 7016}, {1, 1}},
               // The limit lies between the two: 174 * 6 and 175 * 6 pixels to 210 millimetres.
               {{174, 20}, {210, 297}, {4960, 7016}, {1, 1}},
               {{175, 20}, {210, 297}, {4960, 7016}, {2, 1}},
               {{1500, 1500}, {210, 297}, {4960, 7016}, {9, 7}},
               {{1500, 20}, {297, 210}, {7016, 4960}, {7, 1}},
               {{300, 100}, {210, 297}, {2480, 3508}, {4, 1}},
               {{300, 100}, {1, 1}, {1, 1}, {7201, 2401}}};
  for (const auto& c : cases) {
    printing.millimetres = c.millimetres;
    printing.pixels = c.pixels;
    const auto chart = ChartTo(c.corner);
    const bool tooMany = c.pages.cx * c.pages.cy > ViewPages::kMaxPages;
    if (tooMany) boxes.Expect("too large for that many pages");
    EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT));
    EXPECT_EQ(chart->GetPagesAcross(), c.pages.cx) << c.corner.x;
    EXPECT_EQ(chart->GetPagesDown(), c.pages.cy) << c.corner.x;
    EXPECT_EQ(Pages().size(), tooMany ? 0 : static_cast<std::size_t>(c.pages.cx * c.pages.cy));
    EXPECT_EQ(printing.documents.back().ended, !tooMany);
  }
}

TEST_F(Print, EachPageShowsItsPartAtTheSameScale) {
  const auto chart = ChartTo({300, 400});
  chart->OnCommand(ID_FILE_PRINT);
  ASSERT_EQ(Pages().size(), 4U);
  const POINT origins[] = {{0, 0}, {-4960, 0}, {0, -7016}, {-4960, -7016}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(Pages()[i].mapping.WindowExt().cx, 992);
    EXPECT_EQ(Pages()[i].mapping.WindowExt().cy, 1403);
    EXPECT_DOUBLE_EQ(Pages()[i].mapping.Scale(), 5);
    EXPECT_EQ(Pages()[i].mapping.ViewportOrg(), origins[i]) << i;
    EXPECT_FALSE(Pages()[i].drawn.records.empty());
  }
}

TEST_F(Print, ToFitPutsTheCornerOnTheEdgeOfOnePage) {
  const auto chart = ChartTo({500, 200});
  PrintToFit(*chart);
  chart->OnCommand(ID_FILE_PRINT);
  ASSERT_EQ(Pages().size(), 1U);
  const POINT corner = Pages()[0].mapping.ToDevice(POINT{3000, 1200});
  EXPECT_EQ(corner.x, 4960);
  EXPECT_LT(corner.y, 7016);

  // Without an extent there is nothing to fit.
  const auto empty = LoadChart(ChartText(""));
  PrintToFit(*empty);
  empty->OnCommand(ID_FILE_PRINT);
  ASSERT_EQ(Pages().size(), 1U);
  EXPECT_EQ(Pages()[0].mapping.WindowExt().cx, 992);
  EXPECT_TRUE(Pages()[0].drawn.records.empty());
}

TEST_F(Print, NeitherZoomNorSelectionNorGridChangesThePaper) {
  const auto chart = LoadChart(SmallChart());
  chart->OnCommand(ID_FILE_PRINT);
  const Metafile plain = Pages()[0].drawn;
  chart->OnCommand(ID_ZOOM_IN);
  chart->OnCommand(ID_EDIT_SELECT_ALL);
  const std::string before = chart->ModelText();
  chart->OnCommand(ID_FILE_PRINT);
  const Metafile marked = Pages()[0].drawn;
  EXPECT_TRUE(chart->IsGridShown());
  EXPECT_EQ(chart->ModelText(), before);
  ASSERT_EQ(marked.records.size(), plain.records.size());
  for (std::size_t i = 0; i < plain.records.size(); ++i) {
    EXPECT_EQ(marked.records[i].points, plain.records[i].points) << i;
    EXPECT_EQ(marked.records[i].rect, plain.records[i].rect) << i;
  }
}

TEST_F(Print, NeitherZoomNorPositionChangesThePages) {
  // A line and a short arrow, whose label stands where the window is.
  const auto chart = LoadChart(ChartText(
      LineRecord(1, 0, 0, "1 1 1 1") +
      TransitionRecord(2, 0, 0, "3 1 1 1", "2 20 62 20 63 \n0 20 63 20 64 \n3 20 64 20 65 \n")));
  PrintToFit(*chart);
  chart->ApplyZoom();
  chart->OnCommand(ID_FILE_PRINT);
  const SIZE fitted = Pages()[0].mapping.WindowExt();
  EXPECT_EQ(fitted, (SIZE{61 * 6, 66 * 6}));
  for (const unsigned zoom : {ID_ZOOM_OUT, ID_ZOOM_IN}) {
    while (chart->OnCommand(zoom)) continue;
    chart->SetScrollPos(ScrollBar::Horizontal, 4000);
    chart->SetScrollPos(ScrollBar::Vertical, 4000);
    chart->OnCommand(ID_FILE_PRINT);
    EXPECT_EQ(Pages()[0].mapping.WindowExt(), fitted) << chart->GetZoom();
  }
}

TEST_F(Print, WhatTheUserChoosesIsPrinted) {
  const auto chart = ChartTo({1500, 20});  // nine pages
  const struct {
    int from, to, cancelAt;
    std::size_t pages;
  } cases[] = {{1, CPrintInfo::kAllPages, 0, 9}, {3, 5, 0, 3}, {8, 100, 0, 2}, {1, 9, 4, 3}};
  for (const auto& c : cases) {
    printing.fromPage = c.from;
    printing.toPage = c.to;
    printing.cancelAtPage = c.cancelAt;
    chart->OnCommand(ID_FILE_PRINT);
    EXPECT_EQ(Pages().size(), c.pages) << c.from;
    EXPECT_EQ(Pages()[0].mapping.ViewportOrg().x, -4960 * (c.from - 1));
  }
  printing.fromPage = 10;
  boxes.Expect("The chart does not have these pages");
  chart->OnCommand(ID_FILE_PRINT);
  EXPECT_TRUE(Pages().empty());

  const std::size_t documents = printing.documents.size();
  printing.accepts = false;
  chart->OnCommand(ID_FILE_PRINT);
  EXPECT_EQ(printing.documents.size(), documents);
  const int dialogs = printing.dialogs;
  chart->OnCommand(ID_FILE_PRINT_DIRECT);
  EXPECT_EQ(printing.dialogs, dialogs);
  EXPECT_EQ(printing.documents.size(), documents + 1);
}

TEST_F(Print, WhatCannotBePrintedIsSaid) {
  const auto far = ChartTo({2000000000, 2000000000});
  boxes.Expect("too large for that many pages");
  far->OnCommand(ID_FILE_PRINT);
  EXPECT_EQ(boxes.LastFlags(), MB_ICONHAND);
  far->OnCommand(ID_FILE_PRINT_PREVIEW);
  EXPECT_EQ(printing.previewPages, 0);
  EXPECT_NE(printing.previewProblem, "");
  PrintToFit(*far);
  far->OnCommand(ID_FILE_PRINT);
  EXPECT_EQ(Pages().size(), 1U);

  const auto chart = LoadChart(SmallChart());
  for (const SIZE size : {SIZE{0, 7016}, SIZE{4960, 0}, SIZE{-1, -1}}) {
    printing.pixels = size;
    boxes.Expect("The page has no room to print on");
    chart->OnCommand(ID_FILE_PRINT);
    EXPECT_TRUE(Pages().empty());
  }
  printing.pixels = {4960, 7016};
  printing.failure = "/dev/full\n\nNo space left on device";
  boxes.Expect("No space left on device");
  chart->OnCommand(ID_FILE_PRINT);
}

}  // namespace
