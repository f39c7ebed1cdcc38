#include "tests/support/OpenCharts.h"
#include "tests/support/SaveDialogs.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

using Answer = DocumentNotice::Answer;

/// A chart that is open while others write to its file.
class OtherHandsTest : public testing::Test {
 protected:
  void Overwrite(const std::string& text) const { folder.Write("a.mrv", ModelFile::ToDisk(text)); }
  /// What the user sees of it.
  std::string Look() {
    document.LookAtFile();
    return charts.notices.empty() ? "" : charts.notices.front().text;
  }
  std::string Text() { return OpenCharts::ViewOf(document).ModelText(); }
  std::string OnDisk() const { return ModelFile::FromDisk(folder.Read("a.mrv")); }

  TempFolder folder;
  const std::string path = folder.Write("a.mrv", ModelFile::ToDisk(SmallChart()));
  const std::string theirs = ChartText(StateRecord(1, {10, 10, 30, 30}, "Theirs"));
  ScriptedMessageBoxes boxes;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  OpenCharts charts{folder.Path("state")};
  CMorvaneDoc& document{charts.Open(path)};
};

TEST_F(OtherHandsTest, WhatBecameOfTheFileIsToldOnce) {
  const std::string changed = LoadText(IDS_FILE_CHANGED);
  const std::string gone = LoadText(IDS_FILE_GONE);
  const struct {
    const char* what;
    std::function<void()> act;
    std::string told;
  } cases[] = {
      {"nothing", [] {}, ""},
      {"touched", [&] { fs::last_write_time(path, fs::file_time_type::clock::now()); }, ""},
      {"written anew with the same text", [&] { Overwrite(SmallChart()); }, ""},
      {"written over", [&] { Overwrite(theirs); }, changed},
      {"and back", [&] { Overwrite(SmallChart()); }, ""},
      {"replaced",
       [&] {
         folder.Write("new", ModelFile::ToDisk(theirs));
         fs::rename(folder.Path("new"), path);
       },
       changed},
      {"taken away", [&] { fs::remove(path); }, gone},
      {"a folder now", [&] { fs::create_directory(path); }, gone},
      {"back again",
       [&] {
         fs::remove(path);
         Overwrite(SmallChart());
       },
       ""},
      {"cut", [&] { Overwrite(""); }, changed},
  };
  for (const auto& [what, act, told] : cases) {
    act();
    EXPECT_EQ(Look(), told) << what;
  }
  EXPECT_EQ(Text(), SmallChart()) << "nobody asked for another chart";
}

TEST_F(OtherHandsTest, ReloadShowsTheirsAndUndoMine) {
  OpenCharts::Sign(document, "Me");
  const std::string mine = Text();
  Overwrite(theirs);
  EXPECT_NE(Look(), "");
  boxes.Expect("a.mrv", MessageAnswer::No);
  document.OnNoticeAnswered(Answer::Reload);
  EXPECT_EQ(Text(), mine);
  boxes.Expect("a.mrv", MessageAnswer::Yes);
  document.OnNoticeAnswered(Answer::Reload);
  EXPECT_EQ(Text(), theirs);
  EXPECT_FALSE(document.IsModified() || document.HasUnsavedMark());
  EXPECT_EQ(Look(), "");
  OpenCharts::ViewOf(document).OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(Text(), mine);
  EXPECT_TRUE(document.HasUnsavedMark());
}

TEST_F(OtherHandsTest, AFileThatCannotBeReadChangesNothing) {
  const std::string whole = ModelFile::ToDisk(theirs);
  folder.Write("a.mrv", whole.substr(0, whole.size() / 2));
  EXPECT_NE(Look(), "");
  boxes.Expect("a.mrv");
  document.OnNoticeAnswered(Answer::Reload);
  EXPECT_EQ(Text(), SmallChart());
  EXPECT_NE(Look(), "") << "the bar stays";
  Overwrite("");
  Look();
  document.OnNoticeAnswered(Answer::Reload);
  EXPECT_EQ(document.StatusText(), LoadText(IDS_FILE_EMPTY));
  EXPECT_TRUE(OpenCharts::ViewOf(document).GetModel().Objects().empty());
}

TEST_F(OtherHandsTest, KeepingMineMakesItUnsavedAndSavesWithoutAQuestion) {
  Overwrite(theirs);
  EXPECT_NE(Look(), "");
  document.OnNoticeAnswered(Answer::KeepMine);
  EXPECT_EQ(Look(), "");
  EXPECT_TRUE(document.IsModified() && document.HasUnsavedMark());
  EXPECT_TRUE(document.DoFileSave());
  EXPECT_EQ(OnDisk(), SmallChart());
  EXPECT_FALSE(document.IsModified());
}

TEST_F(OtherHandsTest, SavingOverTheirsAsksFirst) {
  OpenCharts::Sign(document, "Me");
  Overwrite(theirs);
  boxes.Expect("another program has changed it", MessageAnswer::No);
  EXPECT_FALSE(document.DoFileSave());
  EXPECT_EQ(OnDisk(), theirs);
  EXPECT_TRUE(document.HasUnsavedMark());
  EXPECT_EQ(charts.notices.size(), 1U) << "now the bar says it too";
  boxes.Expect("another program has changed it", MessageAnswer::Yes);
  EXPECT_TRUE(document.DoFileSave());
  EXPECT_EQ(OnDisk(), Text());
  EXPECT_EQ(Look(), "");
}

TEST_F(OtherHandsTest, AFileThatIsGoneLeavesItsChartUnsaved) {
  fs::remove(path);
  EXPECT_EQ(Look(), LoadText(IDS_FILE_GONE));
  EXPECT_TRUE(document.IsModified() && document.HasUnsavedMark());
  document.OnNoticeAnswered(Answer::Save);
  EXPECT_EQ(OnDisk(), SmallChart());
  EXPECT_EQ(Look(), "");
  EXPECT_FALSE(document.HasUnsavedMark());
}

TEST_F(OtherHandsTest, RevertGoesBackToTheFile) {
  EXPECT_FALSE(document.CanRevert());
  OpenCharts::Sign(document, "Me");
  EXPECT_TRUE(document.CanRevert());
  boxes.Expect("go back to the chart", MessageAnswer::Yes);
  document.Revert();
  EXPECT_EQ(Text(), SmallChart());
  EXPECT_FALSE(document.CanRevert());
  EXPECT_FALSE(charts.New().CanRevert()) << "it has no file";
}

TEST_F(OtherHandsTest, NoChartIsSavedOverAnotherOneThatIsOpen) {
  SaveDialogs dialogs;
  CDocument& other = charts.New();
  for (const char* name : {"a.mrv", "./a.mrv"}) {
    dialogs.path = folder.Path(name);
    boxes.Expect("is open in another window");
    EXPECT_FALSE(other.DoFileSaveAs());
    EXPECT_EQ(OnDisk(), SmallChart());
  }
  EXPECT_TRUE(other.GetPathName().empty());
  dialogs.path = folder.Path("b.mrv");
  EXPECT_TRUE(other.DoFileSaveAs());
  // Over its own file it is a plain save.
  EXPECT_TRUE(other.DoFileSaveAs());
}

TEST_F(OtherHandsTest, TheMarkFollowsTheTextAndTheTitleFollowsTheMark) {
  const int before = charts.titlesShown;
  OpenCharts::Sign(document, "Me");
  OpenCharts::Sign(document, "Still me");
  EXPECT_EQ(charts.titlesShown, before + 1);
  OpenCharts::ViewOf(document).OnCommand(ID_EDIT_UNDO);
  EXPECT_TRUE(document.HasUnsavedMark());
  OpenCharts::ViewOf(document).OnCommand(ID_EDIT_UNDO);
  EXPECT_FALSE(document.HasUnsavedMark());
  EXPECT_EQ(charts.titlesShown, before + 2);
}

}  // namespace

}  // namespace morvane
