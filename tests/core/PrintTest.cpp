#include "dialogs/DialogEditors.h"
#include "dialogs/PrinterSetup.h"
#include "platform/ViewPages.h"
#include "surface/PrintMapping.h"
#include "surface/ViewGeometry.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"
#include "tests/support/ScriptedPrinting.h"

namespace morvane {

namespace {

/// A chart whose one state ends at a model point.
std::unique_ptr<LayoutMgr> ChartTo(POINT corner) {
  return LoadChart(ChartText(StateRecord(1, {corner.x - 20, corner.y - 15, corner.x, corner.y})));
}

/// Asks for the printer and turns "Print to Fit" round in the dialog that opens.
class PrintSetup : public DialogHost {
 public:
  void Run(Dialog& dialog) override {
    NestedLoop::Run();
    bool& fits = dialog.Control(PrinterSetup::kPrintToFitId).checked;
    fits = !fits;
    dialog.Click(PrinterSetup::kPrinterId);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.Click(button);
  }
  int button = IDOK;

 private:
  const DialogEditors editors;
  const UseService<DialogHost> use{*this};
};

class Print : public testing::Test {
 protected:
  static void PrintToFit(LayoutMgr& chart) { chart.OnCommand(ID_FILE_PRINT_SETUP); }
  const std::vector<ScriptedPrinting::Page>& Printed(LayoutMgr& chart) {
    EXPECT_TRUE(chart.OnCommand(ID_FILE_PRINT));
    return printing.documents.back().pages;
  }
  SIZE FirstExtent(LayoutMgr& chart) { return Printed(chart).at(0).mapping.WindowExt(); }

  ScriptedPrinting printing;
  PrintSetup setup;
  ScriptedMessageBoxes boxes;
};

TEST_F(Print, TheExtentDividesIntoPages) {
  const struct {
    POINT corner;
    SIZE millimetres, pixels, pages;
  } cases[] = {{{300, 100}, {210, 297}, {4960, 7016}, {2, 1}},
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
    const int count = c.pages.cx * c.pages.cy;
    const bool tooMany = count > ViewPages::kMaxPages;
    if (tooMany) boxes.Expect("too large for that many pages");
    EXPECT_EQ(Printed(*chart).size(), tooMany ? 0U : static_cast<std::size_t>(count));
    EXPECT_EQ(chart->GetPrintMapping().PagesAcross(), c.pages.cx) << c.corner.x;
    EXPECT_EQ(chart->GetPrintMapping().PagesDown(), c.pages.cy) << c.corner.x;
    EXPECT_EQ(printing.documents.back().ended, !tooMany);
  }
}

TEST_F(Print, TheSetupIsOfTheViewAndNotOfTheChart) {
  const auto chart = LoadChart(SmallChart());
  chart->TakeSnapshot();
  for (const bool ok : {false, true}) {
    setup.button = ok ? IDOK : IDCANCEL;
    EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT_SETUP));
    EXPECT_EQ(chart->GetPrintMapping().IsToFit(), ok);
  }
  EXPECT_EQ(printing.setups, 2);
  chart->TakeSnapshot();
  EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_UNDO).enabled);
}

TEST_F(Print, ToFitPutsTheCornerOnTheEdgeOfOnePage) {
  const auto chart = ChartTo({500, 200});
  PrintToFit(*chart);
  ASSERT_EQ(Printed(*chart).size(), 1U);
  const POINT corner = Printed(*chart)[0].mapping.ToDevice(POINT{3000, 1200});
  EXPECT_EQ(corner.x, 4960);
  EXPECT_LT(corner.y, 7016);
  const auto tall = ChartTo({200, 1500});
  PrintToFit(*tall);
  EXPECT_NEAR(Printed(*tall).at(0).mapping.ToDevice(POINT{1200, 9000}).y, 7016, 4);
  // Without an extent there is nothing to fit.
  const auto empty = LoadChart(ChartText(""));
  PrintToFit(*empty);
  EXPECT_EQ(FirstExtent(*empty).cx, 992);
}

TEST_F(Print, NeitherZoomNorPositionNorSelectionChangesThePaper) {
  const auto chart = LoadChart(SmallChart());
  const auto shapes = [&] {
    std::string text;
    for (const Metafile::Record& record : Printed(*chart)[0].drawn.records) {
      text += Text(record.points) + Text({TopLeft(record.rect), BottomRight(record.rect)}) + "\n";
    }
    return text;
  };
  const std::string plain = shapes();
  chart->OnCommand(ID_ZOOM_IN);
  chart->OnCommand(ID_EDIT_SELECT_ALL);
  const std::string before = chart->ModelText();
  EXPECT_TRUE(chart->GetGeometry().IsGridShown());
  FakeWindow window(*chart);
  EXPECT_EQ(shapes(), plain);
  EXPECT_EQ(chart->ModelText(), before);
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
    EXPECT_EQ(Printed(*chart).size(), c.pages) << c.from;
    EXPECT_EQ(printing.documents.back().pages[0].mapping.ViewportOrg().x, -4960 * (c.from - 1));
  }
  printing.fromPage = 10;
  boxes.Expect("The chart does not have these pages");
  EXPECT_TRUE(Printed(*chart).empty());

  printing.accepts = false;
  const std::size_t documents = printing.documents.size();
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
  EXPECT_EQ(Printed(*far).size(), 1U);

  const auto chart = LoadChart(SmallChart());
  for (const SIZE size : {SIZE{0, 7016}, SIZE{4960, 0}, SIZE{-1, -1}}) {
    printing.pixels = size;
    boxes.Expect("The page has no room to print on");
    EXPECT_TRUE(Printed(*chart).empty());
  }
  printing.pixels = {4960, 7016};
  printing.failure = "/dev/full\n\nNo space left on device";
  boxes.Expect("No space left on device");
  chart->OnCommand(ID_FILE_PRINT);
}

}  // namespace

}  // namespace morvane
