#include "tests/support/ChartDocuments.h"

namespace {

class DocumentTest : public ::testing::Test, protected ChartDocuments {
 protected:
  const std::string small = folder.Write("Small.mrv", ModelFile::ToDisk(SmallChart()));
};

TEST_F(DocumentTest, NewChartsAreNumberedAndUnmodified) {
  for (const char* title : {"Morvane_Diagram1", "Morvane_Diagram2"}) {
    CDocument* document = manager.NewDocument();
    EXPECT_EQ(document->GetTitle(), title);
    EXPECT_FALSE(document->IsModified());
    EXPECT_EQ(frames.shown.count(document), 1U);
  }
}

TEST_F(DocumentTest, OpensSavesAndFindsOutWhatChanged) {
  CDocument* document = manager.OpenDocumentFile(small);
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(document->GetTitle(), "Small.mrv");
  EXPECT_FALSE(document->IsModified());
  View(document).OnCommand(ID_ZOOM_IN);
  EXPECT_TRUE(document->IsModified()) << "the zoom is in the text";
  View(document).OnCommand(ID_ZOOM_NORMAL);
  View(document).OnCommand(ID_EDIT_SELECT_ALL);
  View(document).OnScrollBy({60, 60});
  EXPECT_FALSE(document->IsModified()) << "selection and position are not";
  Change(document);
  EXPECT_TRUE(document->IsModified());
  EXPECT_TRUE(document->DoFileSave());
  EXPECT_FALSE(document->IsModified());
  EXPECT_EQ(folder.Read("Small.mrv"), ModelFile::ToDisk(View(document).ModelText()));
  EXPECT_NE(folder.Read("Small.mrv").find("END DATA\r\n"), std::string::npos);
  // A file that is open comes forward.
  manager.NewDocument();
  EXPECT_EQ(manager.OpenDocumentFile(folder.Path("./Small.mrv")), document);
  EXPECT_EQ(frames.active, document);
  EXPECT_EQ(manager.Documents().size(), 2U);
}

TEST_F(DocumentTest, AnOlderOrAnEmptyFileOpensUnmodified) {
  std::string old = SmallChart();
  old.replace(0, 8, "9999 4 0");
  for (const auto& [file, text] : {std::pair{old, SmallChart()}, {"", ChartText("")}}) {
    CDocument* document = manager.OpenDocumentFile(folder.Write("Old.mrv", file));
    ASSERT_NE(document, nullptr);
    EXPECT_FALSE(document->IsModified());
    EXPECT_EQ(View(document).ModelText(), text);
    manager.CloseDocument(*document);
  }
}

TEST_F(DocumentTest, AFailedOpenLeavesNoChart) {
  CDocument* other = manager.OpenDocumentFile(small);
  const std::string cut = SmallChart().substr(0, SmallChart().size() - 30);
  const std::pair<std::string, std::string> cases[] = {
      {folder.Path("None.mrv"), "No such file or directory"},
      {folder.Root().string(), "Is a directory"},
      {folder.Write("Cut.mrv", cut), "Invalid or Corrupt File"}};
  for (const auto& [path, reason] : cases) {
    boxes.Expect(path + "\n\nCommand Failed.\n\nReason: " + reason);
    EXPECT_EQ(manager.OpenDocumentFile(path), nullptr);
    EXPECT_EQ(boxes.LastFlags(), 0x10U);
  }
  EXPECT_EQ(frames.frames, std::set<CDocument*>{other});
}

TEST_F(DocumentTest, AFailedSaveLeavesTheChartModified) {
  CDocument* document = manager.NewDocument();
  Change(document);
  const std::pair<std::string, std::string> cases[] = {
      {folder.Path("gone/x.mrv"), "Unable to open for writing"},
      {folder.Root().string(), "Unable to open for writing"},
      {"/dev/full", "No space left on device"}};
  for (const auto& [path, reason] : cases) {
    dialogs.ExpectSave(path);
    boxes.Expect(path + "\n\nCommand Failed.\n\nReason: " + reason);
    EXPECT_FALSE(document->DoFileSave());
    EXPECT_TRUE(document->IsModified());
    EXPECT_EQ(document->GetPathName(), "");
  }
  dialogs.ExpectSave(std::nullopt);
  EXPECT_FALSE(document->DoFileSave());
  EXPECT_EQ(dialogs.LastSuggestion(), "Morvane_Diagram1.mrv");
}

TEST_F(DocumentTest, ClosingAsksForModifiedCharts) {
  CDocument* document = manager.OpenDocumentFile(small);
  EXPECT_TRUE(document->SaveModified()) << "nothing to ask";
  Change(document);
  for (const auto answer : {MessageAnswer::Cancel, MessageAnswer::No, MessageAnswer::Yes}) {
    boxes.Expect("Save changes to Small.mrv?", answer);
    EXPECT_EQ(manager.SaveAllModified(), answer != MessageAnswer::Cancel);
    EXPECT_EQ(document->IsModified(), answer != MessageAnswer::Yes);
  }
  manager.CloseAllDocuments();
  EXPECT_TRUE(frames.frames.empty());
}

TEST_F(DocumentTest, RecentFilesFollowOpenAndSave) {
  using Paths = std::vector<std::string>;
  const std::string fresh = folder.Path("Fresh.mrv");
  manager.OpenDocumentFile(small);
  dialogs.ExpectSave(fresh);
  EXPECT_TRUE(manager.NewDocument()->DoFileSaveAs());
  EXPECT_EQ(manager.Recent().Paths(), (Paths{FullPath(fresh), FullPath(small)}));
  manager.CloseAllDocuments();
  std::filesystem::remove(fresh);
  boxes.Expect("No such file or directory");
  manager.OnOpenRecentFile(0);
  EXPECT_EQ(manager.Recent().Paths(), Paths{FullPath(small)});
  manager.OnOpenRecentFile(7);
}

}  // namespace
