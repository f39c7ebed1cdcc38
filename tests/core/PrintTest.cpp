#include "dialogs/DialogEditors.h"
#include "dialogs/PrinterSetup.h"
#include "platform/Profile.h"
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
    dialog.Control(PrinterSetup::kSheetTitlesId).checked = titles;
    dialog.Click(PrinterSetup::kPrinterId);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.Click(button);
  }
  int button = IDOK;
  bool titles = false;

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

  MemoryProfile profile;
  const UseService<Profile> useProfile{profile};
  ScriptedPrinting printing;
  PrintSetup setup;
  ScriptedMessageBoxes boxes;
};

TEST_F(Print, TheExtentDividesIntoPages) {
  const struct {
    POINT corner;
    SIZE millimetres, pixels, pages;
  } cases[] = {{{300, 100}, {210, 297}, {4960, 7016}, {2, 1}},
               // A page of 210 millimetres shows 992 logical units, six to the model unit.
               {{165, 20}, {210, 297}, {4960, 7016}, {1, 1}},
               {{166, 20}, {210, 297}, {4960, 7016}, {2, 1}},
               // Not a sheet more than it takes.
               {{160, 20}, {203, 297}, {4795, 7016}, {2, 1}},
               {{160, 20}, {204, 297}, {4819, 7016}, {1, 1}},
               {{1500, 1500}, {210, 297}, {4960, 7016}, {10, 7}},
               {{1500, 20}, {297, 210}, {7016, 4960}, {7, 1}},
               {{300, 100}, {210, 297}, {2480, 3508}, {2, 1}},
               {{300, 100}, {1, 1}, {1, 1}, {450, 150}}};
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

TEST_F(Print, TheSetupIsKeptAndIsNotOfTheChart) {
  const auto chart = LoadChart(SmallChart());
  chart->TakeSnapshot();
  for (const bool ok : {false, true}) {
    setup.button = ok ? IDOK : IDCANCEL;
    EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT_SETUP));
    EXPECT_EQ(chart->GetPrintMapping().IsToFit(), ok);
  }
  EXPECT_EQ(printing.setups, 2);
  EXPECT_TRUE(LoadChart(SmallChart())->GetPrintMapping().IsToFit());
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
  const auto tall = ChartTo({200, 1500});  // still to fit
  EXPECT_NEAR(Printed(*tall).at(0).mapping.ToDevice(POINT{1200, 9000}).y, 7016, 4);
  // Without an extent there is nothing to fit.
  const auto empty = LoadChart(ChartText(""));
  EXPECT_EQ(FirstExtent(*empty).cx, 992);
}

TEST_F(Print, AtTheFootStandNameAndPageAndNothingElse) {
  const auto chart = ChartTo({160, 450});  // two pages
  setup.titles = true;
  PrintToFit(*chart);
  PrintToFit(*chart);
  const auto pages = Printed(*chart);
  ASSERT_EQ(pages.size(), 2U);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const auto& records = pages[i].drawn.records;
    ASSERT_GT(records.size(), 3U);
    const Metafile::Record& strip = records[records.size() - 3];
    EXPECT_EQ(strip.kind, Metafile::Kind::FillRect);
    EXPECT_EQ(strip.brush, CBrush::Solid(RGB(255, 255, 255)));
    EXPECT_EQ(Height(strip.rect), 24);
    EXPECT_EQ(records.back().text, "Page " + std::to_string(i + 1) + " of 2");
    // The next page goes on where the strip begins.
    EXPECT_NEAR(pages[i].mapping.ViewportOrg().y, -(7016 - 120) * static_cast<int>(i), 1);
  }
}

TEST_F(Print, CopiesFollowEachOtherAsChosen) {
  const struct {
    int copies;
    bool collate, reverse;
    std::vector<int> pages;
  } cases[] = {{1, true, false, {2, 3}},
               {2, true, false, {2, 3, 2, 3}},
               {2, false, false, {2, 2, 3, 3}},
               {2, true, true, {3, 2, 3, 2}},
               {3, false, true, {3, 3, 3, 2, 2, 2}}};
  for (const auto& c : cases) {
    CPrintInfo info;
    info.fromPage = 2;
    info.copies = c.copies;
    info.collate = c.collate;
    info.reverse = c.reverse;
    EXPECT_EQ(info.Sequence(3), c.pages);
    EXPECT_TRUE(info.Sequence(1).empty());
  }
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
  const auto chart = ChartTo({1500, 20});  // ten pages
  const struct {
    int from, to, cancelAt;
    std::size_t pages;
  } cases[] = {{1, CPrintInfo::kAllPages, 0, 10}, {3, 5, 0, 3}, {9, 100, 0, 2}, {1, 9, 4, 3}};
  for (const auto& c : cases) {
    printing.fromPage = c.from;
    printing.toPage = c.to;
    printing.cancelAtPage = c.cancelAt;
    EXPECT_EQ(Printed(*chart).size(), c.pages) << c.from;
    EXPECT_EQ(printing.documents.back().pages[0].mapping.ViewportOrg().x, -4960 * (c.from - 1));
  }
  printing.fromPage = 11;
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
