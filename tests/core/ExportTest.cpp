#include <csignal>
#include <sys/resource.h>

#include "persistence/UndoHistory.h"
#include "platform/Pictures.h"
#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"

namespace {

constexpr int kLow = std::numeric_limits<int>::min();
constexpr int kHigh = std::numeric_limits<int>::max();
constexpr const char* kTooLarge = "The chart is too large for a picture of this kind";
constexpr const char* kExtensions[] = {".png", ".svg", ".pdf", ".emf"};

std::string Text(SIZE size) { return std::to_string(size.cx) + "x" + std::to_string(size.cy); }

/// Makes pictures that tell their size, up to a limit.
class SmallPictures : public Pictures {
 public:
  std::unique_ptr<CDC> ReferenceDC() override { return std::make_unique<CNullDC>(); }
  std::optional<std::string> MakePng(SIZE size, const Paint&) override { return Make(size); }
  std::optional<std::string> MakePdf(SIZE size, const Paint&) override { return Make(size); }

 private:
  static std::optional<std::string> Make(SIZE size) {
    constexpr int limit = 30000;
    if (size.cx > limit || size.cy > limit) return std::nullopt;
    return Text(size);
  }
  const UseService<Pictures> use{*this};
};

/// A chart in a document with a path, as it is after opening.
class ExportTest : public ::testing::Test {
 protected:
  ExportTest() { Open(SmallChart()); }

  void Open(const std::string& text) {
    WriteWholeFile(folder.Path("Lift.v2.mrv"), text);
    document.SetView(std::make_unique<LayoutMgr>());
    ASSERT_TRUE(document.OnOpenDocument(folder.Path("Lift.v2.mrv")));
    document.SetPathName(folder.Path("Lift.v2.mrv"));
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
  void ExportFails(const std::string& path, const std::string& reason) {
    boxes.Expect(path + "\n\nCommand Failed.\n\nReason: " + reason);
    Export(path);
    EXPECT_EQ(boxes.LastFlags(), unsigned{MB_ICONHAND});
  }
  std::string Read(const std::string& name) const {
    std::string bytes;
    ReadWholeFile(folder.Path(name), bytes);
    return bytes;
  }
  std::size_t FileCount() const {
    const std::filesystem::directory_iterator entries(folder.Root());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  SmallPictures pictures;
  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  CMorvaneDoc document;
};

TEST_F(ExportTest, ProposesTheChartsNameAndTheKindUsedLast) {
  const struct {
    const char* file;
    const char* nextSuggestion;
    std::size_t nextKind;
  } cases[] = {
      {"a.SVG", "Lift.v2.svg", 1}, {"a.emf", "Lift.v2.emf", 3}, {"b.png", "Lift.v2.png", 0}};
  dialogs.ExpectExport(std::nullopt);
  Chart().OnCommand(ID_FILE_EXPORT);
  EXPECT_EQ(dialogs.LastExport().suggestion, folder.Path("Lift.v2.png"));
  EXPECT_FALSE(dialogs.LastExport().hasSelection);
  ASSERT_EQ(dialogs.LastExport().kinds.size(), 4U);
  EXPECT_EQ(dialogs.LastExport().kinds[2].text, "PDF Page (*.pdf)");
  EXPECT_EQ(FileCount(), 1U) << "Cancel writes nothing";
  for (const auto& c : cases) {
    Export(folder.Path(c.file));
    EXPECT_GT(Read(c.file).size(), 0U);
    dialogs.ExpectExport(std::nullopt);
    Chart().OnCommand(ID_FILE_EXPORT);
    EXPECT_EQ(dialogs.LastExport().suggestion, folder.Path(c.nextSuggestion));
    EXPECT_EQ(dialogs.LastExport().kind, c.nextKind);
  }
  profile.WriteString("Export", "Kind", ".gif");
  document.SetPathName("");
  document.SetTitle("Untitled1");
  dialogs.ExpectExport(std::nullopt);
  Chart().OnCommand(ID_FILE_EXPORT);
  EXPECT_EQ(dialogs.LastExport().suggestion, "Untitled1.png");
}

TEST_F(ExportTest, LeavesTheChartAsItWas) {
  Select({102, 104});
  Chart().OnScroll(ScrollBar::Vertical, ScrollCode::LineForward);
  const POINT scroll = Chart().AddScroll(POINT{});
  for (const bool selectionOnly : {false, true}) Export(folder.Path("o.emf"), selectionOnly);
  EXPECT_TRUE(dialogs.LastExport().hasSelection);
  EXPECT_EQ(Chart().GetSelection().Members().size(), 2U);
  EXPECT_EQ(Chart().AddScroll(POINT{}), scroll);
  EXPECT_FALSE(Chart().OnUpdateCommand(ID_EDIT_UNDO).enabled);
  EXPECT_FALSE(document.IsModified());
}

TEST_F(ExportTest, ASelectionIsCutOutAlone) {
  // The note stands at (40, 10) to (52, 16) and paints two model units around; one more is room.
  Select({104});
  const SIZE size{(12 + 2 * 3) * 6, (6 + 2 * 3) * 6};
  for (const char* extension : kExtensions) Export(folder.Path("o") + extension, true);
  EXPECT_EQ(Read("o.png"), Text(size));
  EXPECT_EQ(Read("o.pdf"), Text(size));

  const std::string svg = Read("o.svg");
  EXPECT_NE(svg.find("viewBox=\"0 0 108 72\""), std::string::npos);
  EXPECT_NE(svg.find("points=\"18.5,18.5 "), std::string::npos) << svg;
  EXPECT_NE(svg.find(">lines<"), std::string::npos);
  EXPECT_EQ(svg.find("[Entry]"), std::string::npos) << "nothing else shows";

  const EmfReader emf(Read("o.emf"));
  emf.CheckFrame();
  EXPECT_EQ(emf.RectAtOffset(8), (RECT{0, 0, size.cx - 1, size.cy - 1}));
  EXPECT_EQ(emf.CountOf(EmfReader::kExtTextOut), 2U) << "the two lines of the note";

  // A transition without room for its label hangs on nothing that the window shows.
  Open(ChartText(
      TransitionRecord(7, 0, 0, "1 3 1 1", "2 50 60 50 61 \n0 50 61 50 62 \n3 50 62 50 63 \n")));
  Select({7});
  const SIZE before = ChartPicture(Chart(), true).Size();
  Chart().OnScroll(ScrollBar::Vertical, ScrollCode::PageForward);
  EXPECT_EQ(ChartPicture(Chart(), true).Size(), before);
  EXPECT_LT(before.cx, 100);
}

TEST_F(ExportTest, AnEmptyChartIsAValidFileOfEachKind) {
  Open("");
  for (const char* extension : kExtensions) Export(folder.Path("o") + extension);
  EXPECT_EQ(Read("o.png"), "6x6") << "one model unit";
  EXPECT_NE(Read("o.svg").find("width=\"6\" height=\"6\""), std::string::npos);
  const EmfReader emf(Read("o.emf"));
  emf.CheckFrame();
  EXPECT_EQ(emf.RectAtOffset(8), (RECT{0, 0, 5, 5}));
}

TEST_F(ExportTest, FarAwayObjectsAreRefusedAndWriteNothing) {
  const int far = 2'000'000'000;
  const int most = ChartPicture::kMaxSide / 6 - 1;
  const struct {
    RECT state;
    bool fits;
    bool selectionFits;
  } cases[] = {{{far, far, far + 10, far + 10}, false, false},
               {{10, 10, far, 20}, false, false},
               {{-far, -far, -far + 10, -far + 10}, true, false},
               {{kLow, kLow, kHigh, kHigh}, false, false},
               {{kHigh, kHigh, kHigh, kHigh}, false, false},
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
      for (const char* extension : {".svg", ".emf"}) {
        SCOPED_TRACE(testing::Message() << c.state.left << ' ' << c.state.right << extension
                                        << (selectionOnly ? " selection" : ""));
        const bool fits = selectionOnly ? c.selectionFits : c.fits;
        EXPECT_EQ(picture.Save(folder.Path("o") + extension), fits ? "" : kTooLarge);
        EXPECT_EQ(std::filesystem::remove(folder.Path("o") + extension), fits);
      }
      EmfReader(picture.MakeEmf()).CheckFrame();
      EXPECT_FALSE(picture.MakeSvg().empty());
    }
  }
  Open(ChartText(StateRecord(1, {far, far, far + 10, far + 10})));
  for (const char* extension : kExtensions) ExportFails(folder.Path("o") + extension, kTooLarge);
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(ExportTest, WhatCannotBeWrittenNamesTheReasonAndKeepsTheOldFile) {
  const std::string gone = folder.Path("gone/o.svg");
  const struct {
    std::string path;
    const char* reason;
  } cases[] = {{folder.Path("o.gif"), "Pictures end in .png, .svg, .pdf or .emf"},
               {folder.Path("o"), "Pictures end in .png, .svg, .pdf or .emf"},
               {folder.Path("Lift.v2.mrv"), "Pictures end in .png, .svg, .pdf or .emf"},
               {gone, "Unable to open for writing"},
               {"/proc/o.emf", "Unable to open for writing"},
               {folder.Root().string() + "/Lift.v2.mrv/o.png", "Unable to open for writing"}};
  for (const auto& c : cases) ExportFails(c.path, c.reason);
  EXPECT_EQ(Read("Lift.v2.mrv"), SmallChart());
  EXPECT_EQ(FileCount(), 1U);

  std::filesystem::create_symlink("/dev/full", folder.Path("full.svg"));
  ExportFails(folder.Path("full.svg"), "No space left on device");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("full.svg")));
}

TEST_F(ExportTest, AFileThatOutgrowsItsRoomLeavesTheOldOne) {
  WriteWholeFile(folder.Path("o.svg"), "old");
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const rlimit small{100, former.rlim_max};
  const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  ExportFails(folder.Path("o.svg"), "File too large");
  setrlimit(RLIMIT_FSIZE, &former);
  std::signal(SIGXFSZ, formerHandler);
  EXPECT_EQ(Read("o.svg"), "old");
  EXPECT_EQ(FileCount(), 2U) << "no part of the new one is left";
}

}  // namespace
