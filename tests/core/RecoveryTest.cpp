#include "platform/FileSystem.h"
#include "recovery/ChartDifference.h"
#include "shell/ChartSession.h"
#include "tests/support/OpenCharts.h"

namespace morvane {

namespace {

class RecoveryTest : public testing::Test {
 protected:
  std::unique_ptr<OpenCharts> Start() const { return std::make_unique<OpenCharts>(store); }
  std::size_t CountFiles() const {
    const std::filesystem::directory_iterator entries(store);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  TempFolder folder;
  const std::string store = folder.Path("state");
  const std::string path = AbsolutePath(folder.Write("a.mrv", ModelFile::ToDisk(SmallChart())));
  ScriptedMessageBoxes boxes;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
};

TEST_F(RecoveryTest, UnsavedWorkOutlivesTheProgramAndComesBackAsAChange) {
  auto first = Start();
  OpenCharts::Sign(first->Open(path), "Ann");
  OpenCharts::Sign(first->New(), "Bob");
  first.reset();

  auto second = Start();
  std::vector<RecoveryOffer> offers = second->Offers();
  ASSERT_EQ(offers.size(), 2U);
  std::ranges::sort(offers, {}, &RecoveryOffer::path);
  EXPECT_EQ(offers[0].title, "Chart1");
  EXPECT_EQ(offers[0].difference, LoadText(IDS_NEVER_SAVED));
  EXPECT_EQ(offers[1].difference, LoadText(IDS_PROPERTIES_CHANGED));
  for (RecoveryOffer& offer : offers) EXPECT_TRUE(RecoverChart(second->manager, offer));
  offers.clear();

  CDocument& bobs = *second->manager.Documents()[0];
  CDocument& anns = *second->manager.Documents()[1];
  EXPECT_EQ(bobs.GetTitle(), "Chart1");
  EXPECT_EQ(OpenCharts::AuthorOf(bobs), "Bob");
  EXPECT_EQ(anns.GetPathName(), path);
  EXPECT_EQ(OpenCharts::AuthorOf(anns), "Ann");
  EXPECT_TRUE(anns.IsModified() && anns.HasUnsavedMark());
  OpenCharts::ViewOf(anns).OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(OpenCharts::ViewOf(anns).ModelText(), SmallChart());
  EXPECT_FALSE(anns.HasUnsavedMark());
  OpenCharts::ViewOf(anns).OnCommand(ID_EDIT_REDO);
  EXPECT_TRUE(anns.DoFileSave());
  // A crash now leaves Bob's chart alone.
  second.reset();
  EXPECT_EQ(Start()->Offers().size(), 1U);
}

TEST_F(RecoveryTest, OnlyWhatDiffersFromItsFileIsKept) {
  const struct {
    const char* what;
    std::function<void(OpenCharts&, CMorvaneDoc&)> act;
    std::size_t offers;
  } cases[] = {
      {"nothing changed", [](OpenCharts&, CMorvaneDoc&) {}, 0},
      {"a change", [](OpenCharts&, CMorvaneDoc& d) { OpenCharts::Sign(d, "Ann"); }, 1},
      {"undone",
       [](OpenCharts&, CMorvaneDoc& d) {
         OpenCharts::Sign(d, "Ann");
         OpenCharts::ViewOf(d).OnCommand(ID_EDIT_UNDO);
       },
       0},
      {"undone and done again",
       [](OpenCharts&, CMorvaneDoc& d) {
         OpenCharts::Sign(d, "Ann");
         OpenCharts::ViewOf(d).OnCommand(ID_EDIT_UNDO);
         OpenCharts::ViewOf(d).OnCommand(ID_EDIT_REDO);
       },
       1},
      {"zoomed", [](OpenCharts&, CMorvaneDoc& d) { OpenCharts::ViewOf(d).OnCommand(ID_ZOOM_IN); },
       1},
      {"saved",
       [](OpenCharts&, CMorvaneDoc& d) {
         OpenCharts::Sign(d, "Ann");
         d.DoFileSave();
       },
       0},
      {"closed without saving",
       [](OpenCharts& charts, CMorvaneDoc& d) {
         OpenCharts::Sign(d, "Ann");
         charts.manager.CloseDocument(d);
       },
       0},
  };
  for (const auto& [what, act, offers] : cases) {
    AbsolutePath(folder.Write("a.mrv", ModelFile::ToDisk(SmallChart())));
    auto run = Start();
    act(*run, run->Open(path));
    run.reset();
    auto next = Start();
    const auto left = next->Offers();
    EXPECT_EQ(left.size(), offers) << what;
    for (const RecoveryOffer& offer : left) offer.entry->Drop();
  }
}

TEST_F(RecoveryTest, ARunningCopyKeepsItsOwn) {
  auto first = Start();
  auto second = Start();
  OpenCharts::Sign(first->Open(path), "Ann");
  first->store.Writer().Finish();
  EXPECT_TRUE(second->Offers().empty()) << "it runs";
  EXPECT_TRUE(second->notices.empty());
  CMorvaneDoc& other = second->Open(path);
  ASSERT_EQ(second->notices.size(), 1U);
  EXPECT_EQ(second->notices[0].text, LoadText(IDS_OPEN_ELSEWHERE));
  other.OnNoticeAnswered(DocumentNotice::Answer::Dismiss);
  EXPECT_TRUE(second->notices.empty());

  first.reset();
  auto third = Start();
  auto offers = third->Offers();
  EXPECT_EQ(offers.size(), 1U);
  EXPECT_TRUE(second->Offers().empty()) << "the third has it on its list";
  offers.clear();
  EXPECT_EQ(second->Offers().size(), 1U) << "and put it back";
  second.reset();
  EXPECT_FALSE(third->store.IsOpenElsewhere(path)) << "a stale lock";
}

TEST_F(RecoveryTest, AFileThatWentBadIsNoHindrance) {
  auto first = Start();
  OpenCharts::Sign(first->Open(path), "Ann");
  first.reset();
  const struct {
    const char* what;
    std::function<void()> act;
  } cases[] = {
      {"the file is gone", [&] { std::filesystem::remove(path); }},
      {"the file is cut",
       [&] { folder.Write("a.mrv", ModelFile::ToDisk(SmallChart()).substr(0, 99)); }},
      {"the file is another chart",
       [&] { folder.Write("a.mrv", ModelFile::ToDisk(ChartText(""))); }},
  };
  for (const auto& [what, act] : cases) {
    act();
    auto run = Start();
    auto offers = run->Offers();
    ASSERT_EQ(offers.size(), 1U) << what;
    ASSERT_TRUE(RecoverChart(run->manager, offers[0])) << what;
    CDocument& document = *run->manager.Documents().back();
    EXPECT_EQ(document.GetPathName(), path) << what;
    EXPECT_EQ(OpenCharts::AuthorOf(document), "Ann") << what;
    EXPECT_TRUE(document.HasUnsavedMark()) << what;
    EXPECT_EQ(run->notices.size(), 1U) << what << ": the user is told of it";
  }
}

TEST_F(RecoveryTest, BytesThatAreNoRecordAreOfferedAsTheyAre) {
  std::filesystem::create_directories(store);
  std::ofstream(store + "/1-2-3-1.chart") << "rubbish";
  auto run = Start();
  auto offers = run->Offers();
  ASSERT_EQ(offers.size(), 1U);
  EXPECT_EQ(offers[0].text, "rubbish");
  boxes.Expect("Not a valid");
  EXPECT_FALSE(RecoverChart(run->manager, offers[0]));
  EXPECT_TRUE(run->manager.Documents().empty());
  offers.clear();
  EXPECT_EQ(run->Offers().size(), 1U) << "it is still there";
}

TEST_F(RecoveryTest, AFailedSaveLeavesTheWorkInTheStore) {
  auto run = Start();
  CMorvaneDoc& document = run->Open(path);
  OpenCharts::Sign(document, "Ann");
  boxes.Expect("Unable to open for writing");
  EXPECT_FALSE(document.OnSaveDocument(folder.Path("none/b.mrv")));
  EXPECT_TRUE(document.HasUnsavedMark());
  run.reset();
  auto next = Start();
  const auto offers = next->Offers();
  ASSERT_EQ(offers.size(), 1U);
  EXPECT_EQ(offers[0].path, path);
}

TEST_F(RecoveryTest, AStoreThatTakesNothingIsSaid) {
  folder.Write("state", "a file where the folder should be");
  auto run = Start();
  CMorvaneDoc& document = run->Open(path);
  EXPECT_TRUE(run->notices.empty());
  OpenCharts::Sign(document, "Ann");
  ASSERT_EQ(run->notices.size(), 1U);
  EXPECT_EQ(run->notices[0].text, LoadText(IDS_NOT_KEPT));
  document.OnNoticeAnswered(DocumentNotice::Answer::Save);
  EXPECT_TRUE(run->notices.empty());
  EXPECT_FALSE(document.IsModified());
}

TEST_F(RecoveryTest, WindowsComeBackAfterACrashAlone) {
  const std::string other = AbsolutePath(folder.Write("b.mrv", ModelFile::ToDisk(SmallChart())));
  auto run = Start();
  run->Open(path);
  CDocument& active = run->Open(other);
  run->New();
  run->store.RememberWindows(WindowsOf(run->manager, &active));
  run.reset();
  run = Start();
  const SessionRecord windows = run->store.TakeCrashedWindows();
  EXPECT_EQ(windows.paths, (std::vector<std::string>{path, other}));
  EXPECT_EQ(windows.active, other);
  EXPECT_TRUE(run->store.TakeCrashedWindows().paths.empty()) << "each is told once";
  std::filesystem::remove(path);
  ReopenWindows(run->manager, windows);
  ASSERT_EQ(run->manager.Documents().size(), 1U);
  EXPECT_EQ(run->manager.Documents()[0]->GetPathName(), other);

  run->store.EndSession(WindowsOf(run->manager, nullptr));
  run.reset();
  run = Start();
  EXPECT_TRUE(run->store.TakeCrashedWindows().paths.empty());
  EXPECT_EQ(run->store.LastWindows().paths, std::vector<std::string>{other});
  run.reset();
  run = Start();
  EXPECT_TRUE(run->Offers().empty());
  EXPECT_TRUE(run->store.TakeCrashedWindows().paths.empty());
  EXPECT_EQ(CountFiles(), 2U) << "the windows of the last run, and the record of this one";
}

TEST_F(RecoveryTest, WindowsOfAnyNameStandInALineEach) {
  SessionRecord windows;
  windows.paths = {"/a.mrv", "/b\\\n.mrv", "/c\xFF.mrv"};
  windows.active = windows.paths[1];
  const SessionRecord again = SessionRecord::Parse(windows.ToText());
  EXPECT_EQ(again.paths, windows.paths);
  EXPECT_EQ(again.active, windows.active);
}

TEST_F(RecoveryTest, AChartDiffersByItsObjects) {
  const std::string one = StateRecord(1, {1, 1, 9, 9}, "One");
  const std::string two = StateRecord(2, {1, 11, 9, 19}, "Two");
  const struct {
    std::string before;
    std::string after;
    std::string text;
  } cases[] = {{ChartText(one), ChartText(one), ""},
               {ChartText(one), ChartText(one + two), "Objects: 1 added"},
               {ChartText(one + two), ChartText(two), "Objects: 1 removed"},
               {ChartText(one), ChartText(StateRecord(1, {1, 1, 9, 9}, "1") + two),
                "Objects: 1 added, 1 changed"},
               {ChartText(one), ChartText(one, "9999 4 1", "7"), "properties or view changed"},
               {"", ChartText(one), "Objects: 1 added"},
               {ChartText(one).substr(0, 60), ChartText(one), "Objects: 1 changed"}};
  for (const auto& [before, after, text] : cases) {
    EXPECT_EQ(ChartDifference::Between(before, after).Text(), text) << before << "\n" << after;
    EXPECT_EQ(ChartDifference::Between(before, after).IsNone(), before == after);
  }
}

}  // namespace

}  // namespace morvane
