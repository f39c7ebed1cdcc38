#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"
#include "tests/support/Routes.h"
#include "tests/support/SizedPictures.h"

namespace {

constexpr int kLow = std::numeric_limits<int>::min();
constexpr int kHigh = std::numeric_limits<int>::max();
constexpr const char* kTooLarge = "The chart is too large for a picture of this kind";
constexpr const char* kExtensions[] = {".png", ".svg", ".pdf", ".emf"};

/// A chart in a document with a path, as it is after opening.
class ExportTest : public ::testing::Test {
 protected:
  ExportTest() { Open(SmallChart()); }

  void Open(const std::string& text) {
    const std::string path = folder.Path("Lift.v2.mrv");
    WriteWholeFile(path, text);
    document.SetView(std::make_unique<LayoutMgr>());
    ASSERT_TRUE(document.OnOpenDocument(path));
    document.SetPathName(path);
    Chart().OnInitialUpdate();
  }
  LayoutMgr& Chart() { return dynamic_cast<LayoutMgr&>(*document.GetView()); }
  void Select(std::initializer_list<int> ids) {
    Chart().GetModel().DeselectAll();
    for (const int id : ids) Chart().GetSelection().Add(FindShape(Chart(), id));
  }
  void Export(const std::string& path, bool selectionOnly = false) {
    dialogs.ExpectExport(Dialogs::ExportAnswer{path, selectionOnly});
    EXPECT_TRUE(Chart().OnCommand(ID_FILE_EXPORT));
  }
  void ExportAllKinds(bool selectionOnly = false) {
    for (const char* extension : kExtensions) Export(folder.Path("o") + extension, selectionOnly);
  }
  void ExportFails(const std::string& path, const std::string& reason) {
    boxes.Expect(path + "\n\nCommand Failed.\n\nReason: " + reason);
    Export(path);
    EXPECT_EQ(boxes.LastFlags(), unsigned{MB_ICONHAND});
  }
  std::size_t FileCount() const {
    const std::filesystem::directory_iterator entries(folder.Root());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  SizedPictures pictures;
  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  CMorvaneDoc document;
};

TEST_F(ExportTest, ASelectionIsCutOutAloneAndTheChartStaysAsItWas) {
  // The note stands at (40, 10) to (52, 16) and paints two model units around; one more is room.
  Select({104});
  Chart().OnScroll(ScrollBar::Vertical, ScrollCode::LineForward);
  const POINT scroll = Chart().AddScroll(POINT{});
  ExportAllKinds();
  ExportAllKinds(true);
  EXPECT_TRUE(dialogs.LastExport().hasSelection);
  EXPECT_EQ(Chart().GetSelection().Members().size(), 1U);
  EXPECT_EQ(Chart().AddScroll(POINT{}), scroll);
  EXPECT_FALSE(Chart().OnUpdateCommand(ID_EDIT_UNDO).enabled);
  EXPECT_FALSE(document.IsModified());

  EXPECT_EQ(folder.Read("o.png"), "108x72 printed");
  EXPECT_EQ(folder.Read("o.pdf"), "108x72 printed");
  const std::string svg = folder.Read("o.svg");
  EXPECT_NE(svg.find("viewBox=\"0 0 108 72\""), std::string::npos);
  EXPECT_NE(svg.find("points=\"18.5,18.5 "), std::string::npos) << svg;
  EXPECT_NE(svg.find(">lines<"), std::string::npos);
  EXPECT_EQ(svg.find("[Entry]"), std::string::npos) << "nothing else shows";
  const EmfReader emf(folder.Read("o.emf"));
  emf.CheckFrame();
  EXPECT_EQ(emf.RectAtOffset(8), (RECT{0, 0, 107, 71}));
  EXPECT_EQ(emf.CountOf(EmfReader::kExtTextOut), 2U) << "the two lines of the note";

  // A transition without room for its label hangs on nothing that the window shows.
  Open(ChartText(TransitionRecord(7, 0, 0, "1 3 1 1", LinkLines("50,60 50,61 50,62 50,63"))));
  Select({7});
  const SIZE before = ChartPicture(Chart(), true).Size();
  Chart().OnScroll(ScrollBar::Vertical, ScrollCode::PageForward);
  EXPECT_EQ(ChartPicture(Chart(), true).Size(), before);
  EXPECT_LT(before.cx, 100);
}

TEST_F(ExportTest, FarAwayObjectsAreRefusedAndWriteNothing) {
  const int far = 2'000'000'000;
  const int most = ChartPicture::kMaxSide / 6 - 1;
  const struct {
    RECT state;
    bool fits, selectionFits;
  } cases[] = {{{10, 10, far, 20}, false, false},
               {{-far, -far, -far + 10, -far + 10}, true, false},
               {{kLow, kLow, kHigh, kHigh}, false, false},
               // In logical units but a part of it fits 32 bits.
               {{kHigh / 6 - 20, 10, kHigh / 6 + 20, 20}, false, false},
               {{kHigh / 6 - 200, 10, kHigh / 6 - 20, 20}, false, true},
               {{10, 10, most, 20}, true, true},
               {{10, 10, most + 1, 20}, false, true}};
  for (const auto& c : cases) {
    Open(ChartText(StateRecord(1, c.state)));
    Select({1});
    for (const bool selectionOnly : {false, true}) {
      const ChartPicture picture(Chart(), selectionOnly);
      EmfReader(picture.MakeEmf()).CheckFrame();
      for (const char* extension : {".svg", ".emf"}) {
        SCOPED_TRACE(testing::Message() << c.state.right << extension << selectionOnly);
        const bool fits = selectionOnly ? c.selectionFits : c.fits;
        EXPECT_EQ(picture.Save(folder.Path("o") + extension), fits ? "" : kTooLarge);
        EXPECT_EQ(std::filesystem::remove(folder.Path("o") + extension), fits);
      }
    }
  }
  Open(ChartText(StateRecord(1, {far, far, far + 10, far + 10})));
  for (const char* extension : kExtensions) ExportFails(folder.Path("o") + extension, kTooLarge);
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ExportTest, WhatCannotBeWrittenNamesTheReasonAndKeepsTheOldFile) {
  for (const char* name : {"o.gif", "o", "Lift.v2.mrv"}) {
    ExportFails(folder.Path(name), "Pictures end in .png, .svg, .pdf or .emf");
  }
  for (const std::string& path : {folder.Path("gone/o.svg"), folder.Path("Lift.v2.mrv/o.png")}) {
    ExportFails(path, "Unable to open for writing");
  }
  EXPECT_EQ(folder.Read("Lift.v2.mrv"), SmallChart());
  EXPECT_EQ(FileCount(), 1U);
  // A file is replaced, not overwritten.
  WriteWholeFile(folder.Path("o.svg"), "old");
  std::filesystem::create_hard_link(folder.Path("o.svg"), folder.Path("old.svg"));
  Export(folder.Path("o.svg"));
  EXPECT_EQ(folder.Read("old.svg"), "old");
  EXPECT_NE(folder.Read("o.svg"), "old");
  std::filesystem::create_symlink("/dev/full", folder.Path("full.svg"));
  ExportFails(folder.Path("full.svg"), "No space left on device");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("full.svg")));
}

}  // namespace
