#include "platform/CDocManager.h"
#include "tests/support/ChartTest.h"

namespace {

/// Windows that only remember which of them there are.
class FakeFrames : public FrameHost {
 public:
  void CreateFrame(CDocument& document) override { frames.insert(&document); }
  void ShowFrame(CDocument& document) override { shown.insert(&document); }
  void ActivateFrame(CDocument& document) override { active = &document; }
  void CloseFrame(CDocument& document) override {
    frames.erase(&document);
    shown.erase(&document);
  }
  void UpdateTitle(CDocument&) override {}

  std::set<CDocument*> frames;
  std::set<CDocument*> shown;
  CDocument* active = nullptr;
};

class DocumentTest : public ::testing::Test {
 protected:
  DocumentTest() { WriteWholeFile(SmallPath(), ModelFile::ToDisk(SmallChart())); }

  static CDocTemplate Template() {
    return {"Morvane_Diagram",
            {"Morvane Files (*.mrv)", ".mrv"},
            [] { return std::make_unique<CMorvaneDoc>(); },
            [] { return std::make_unique<LayoutMgr>(); }};
  }
  std::string SmallPath() const { return folder.Path("Small.mrv"); }
  static LayoutMgr& View(CDocument* document) {
    return dynamic_cast<LayoutMgr&>(*document->GetView());
  }
  static void Change(CDocument* document) { View(document).GetProperties().Author += "!"; }
  std::string Read(const std::string& name) const {
    std::string bytes;
    ReadWholeFile(folder.Path(name), bytes);
    return bytes;
  }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  FakeFrames frames;
  CDocManager manager{Template(), frames};
};

TEST_F(DocumentTest, NewChartsAreNumberedAndUnmodified) {
  CDocument* first = manager.NewDocument();
  EXPECT_EQ(first->GetTitle(), "Morvane_Diagram1");
  EXPECT_EQ(manager.NewDocument()->GetTitle(), "Morvane_Diagram2");
  EXPECT_FALSE(first->IsModified());
  EXPECT_EQ(frames.shown.size(), 2U);
}

TEST_F(DocumentTest, OpensSavesAndFindsOutWhatChanged) {
  CDocument* document = manager.OpenDocumentFile(SmallPath());
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(document->GetTitle(), "Small.mrv");
  EXPECT_FALSE(document->IsModified());
  View(document).OnCommand(ID_ZOOM_IN);
  EXPECT_TRUE(document->IsModified()) << "the zoom is in the text";
  View(document).OnCommand(ID_ZOOM_NORMAL);
  EXPECT_FALSE(document->IsModified());
  View(document).OnCommand(ID_EDIT_SELECT_ALL);
  View(document).OnScrollBy({60, 60});
  EXPECT_FALSE(document->IsModified()) << "selection and position are not";
  Change(document);
  EXPECT_TRUE(document->IsModified());
  EXPECT_TRUE(document->DoFileSave());
  EXPECT_FALSE(document->IsModified());
  EXPECT_EQ(ModelFile::FromDisk(Read("Small.mrv")), View(document).ModelText());
  EXPECT_NE(Read("Small.mrv").find("END DATA\r\n"), std::string::npos);
}

TEST_F(DocumentTest, AnOlderFileOpensUnmodified) {
  std::string text = SmallChart();
  text.replace(0, 8, "9999 4 0");
  WriteWholeFile(folder.Path("Old.mrv"), text);
  EXPECT_FALSE(manager.OpenDocumentFile(folder.Path("Old.mrv"))->IsModified());
}

TEST_F(DocumentTest, AnEmptyFileIsANewChart) {
  WriteWholeFile(folder.Path("Empty.mrv"), "");
  CDocument* document = manager.OpenDocumentFile(folder.Path("Empty.mrv"));
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(View(document).ModelText(), ChartText(""));
}

TEST_F(DocumentTest, AFailedOpenLeavesNoChart) {
  CDocument* other = manager.OpenDocumentFile(SmallPath());
  const std::string cut = SmallChart();
  WriteWholeFile(folder.Path("Cut.mrv"), cut.substr(0, cut.size() - 30));
  const struct {
    std::string path;
    std::string reason;
  } cases[] = {{folder.Path("None.mrv"), "No such file or directory"},
               {folder.Root().string(), "Is a directory"},
               {folder.Path("Cut.mrv"), "Invalid or Corrupt File"}};
  for (const auto& c : cases) {
    boxes.Expect(c.path + "\n\nCommand Failed.\n\nReason: " + c.reason);
    EXPECT_EQ(manager.OpenDocumentFile(c.path), nullptr);
    EXPECT_EQ(boxes.LastFlags(), 0x10U);
  }
  EXPECT_EQ(frames.frames, std::set<CDocument*>{other});
}

TEST_F(DocumentTest, AFileThatIsOpenComesForward) {
  CDocument* document = manager.OpenDocumentFile(SmallPath());
  manager.NewDocument();
  EXPECT_EQ(manager.OpenDocumentFile(folder.Path("./Small.mrv")), document);
  EXPECT_EQ(frames.active, document);
  EXPECT_EQ(manager.Documents().size(), 2U);
}

TEST_F(DocumentTest, AFailedSaveLeavesTheChartModified) {
  CDocument* document = manager.NewDocument();
  Change(document);
  const struct {
    std::string path;
    std::string reason;
  } cases[] = {{folder.Path("gone/x.mrv"), "Unable to open for writing"},
               {folder.Root().string(), "Unable to open for writing"},
               {"/dev/full", "No space left on device"}};
  for (const auto& c : cases) {
    dialogs.ExpectSave(c.path);
    boxes.Expect(c.path + "\n\nCommand Failed.\n\nReason: " + c.reason);
    EXPECT_FALSE(document->DoFileSave());
    EXPECT_TRUE(document->IsModified());
    EXPECT_EQ(document->GetPathName(), "");
  }
  dialogs.ExpectSave(std::nullopt);
  EXPECT_FALSE(document->DoFileSave());
  EXPECT_EQ(dialogs.LastSuggestion(), "Morvane_Diagram1.mrv");
}

TEST_F(DocumentTest, ClosingAsksForModifiedCharts) {
  CDocument* document = manager.OpenDocumentFile(SmallPath());
  EXPECT_TRUE(document->SaveModified()) << "nothing to ask";
  Change(document);
  boxes.Expect("Save changes to Small.mrv?", MessageAnswer::Cancel);
  EXPECT_FALSE(manager.SaveAllModified());
  boxes.Expect("Save changes", MessageAnswer::No);
  EXPECT_TRUE(document->SaveModified());
  EXPECT_TRUE(document->IsModified());
  boxes.Expect("Save changes", MessageAnswer::Yes);
  EXPECT_TRUE(manager.SaveAllModified());
  EXPECT_FALSE(document->IsModified());
  manager.CloseAllDocuments();
  EXPECT_TRUE(frames.frames.empty());
}

TEST_F(DocumentTest, RecentFilesFollowOpenAndSave) {
  manager.OpenDocumentFile(SmallPath());
  CDocument* fresh = manager.NewDocument();
  dialogs.ExpectSave(folder.Path("Fresh.mrv"));
  EXPECT_TRUE(fresh->DoFileSaveAs());
  EXPECT_EQ(manager.Recent().Paths(),
            (std::vector<std::string>{FullPath(folder.Path("Fresh.mrv")), FullPath(SmallPath())}));
  manager.CloseAllDocuments();
  std::filesystem::remove(folder.Path("Fresh.mrv"));
  boxes.Expect("No such file or directory");
  manager.OnOpenRecentFile(0);
  EXPECT_EQ(manager.Recent().Paths(), std::vector<std::string>{FullPath(SmallPath())});
  manager.OnOpenRecentFile(7);
}

}  // namespace
