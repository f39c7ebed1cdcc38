#include "platform/FileSystem.h"
#include "shell/ChartSession.h"
#include "shell/RecoveryList.h"
#include "tests/support/OpenCharts.h"
#include "tests/support/SaveDialogs.h"

namespace morvane {

namespace {

class RecoveryListTest : public testing::Test {
 protected:
  RecoveryListTest() {
    // An earlier run has left two charts behind.
    OpenCharts killed(store);
    OpenCharts::Sign(killed.Open(path), "Ann");
    OpenCharts::Sign(killed.New(), "Bob");
  }
  RecoveryList Listed(OpenCharts& charts) const {
    std::vector<RecoveryOffer> offers = charts.Offers();
    std::ranges::sort(offers, std::greater<>(), &RecoveryOffer::path);
    return {std::move(offers),
            [&](RecoveryOffer& offer) { return RecoverChart(charts.manager, offer); }};
  }
  /// What a further start would offer, once this one has ended.
  std::size_t LeftFor(std::unique_ptr<OpenCharts>& charts) const {
    charts.reset();
    return OpenCharts(store).Offers().size();
  }

  const TempFolder folder;
  const std::string store = folder.Path("state");
  const std::string path = AbsolutePath(folder.Write("a.mrv", ModelFile::ToDisk(SmallChart())));
  ScriptedMessageBoxes boxes;
  SaveDialogs dialogs;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  std::unique_ptr<OpenCharts> charts = std::make_unique<OpenCharts>(store);
};

TEST_F(RecoveryListTest, ARowTellsOfItsChart) {
  std::vector<RecoveryOffer> offers(4);
  offers[0] = {"/x/y/Lift.mrv", "Lift.mrv", {}, 0, "", "3 added", "/r/1.crash", nullptr};
  offers[1] = {"", "Chart7", {}, 0, "", LoadText(IDS_NEVER_SAVED), "/r/1.crash", nullptr};
  offers[3].crashReport = "/r/2.crash";
  const RecoveryList list(std::move(offers), {});
  std::vector<std::string> texts;
  for (const auto& row : list.Rows()) {
    texts.push_back(row.Name() + '|' + row.Folder() + '|' + row.Changes());
  }
  EXPECT_EQ(texts, (std::vector<std::string>{
                       "Lift.mrv|/x/y|Unsaved: 3 added", "Chart7|Not in a file yet|",
                       "Untitled|Not in a file yet|", "Untitled|Not in a file yet|"}));
  EXPECT_EQ(list.CrashReports(), (std::vector<std::string>{"/r/1.crash", "/r/2.crash"}));
  EXPECT_EQ(list.Heading(), LoadText(IDS_RECOVERY_CRASHED));
  EXPECT_EQ(RecoveryList({}, {}).Heading(), LoadText(IDS_RECOVERY_ENDED));
}

TEST_F(RecoveryListTest, ClosingLeavesWhatIsNotDoneForTheNextStart) {
  {
    RecoveryList list = Listed(*charts);
    ASSERT_EQ(list.Rows().size(), 2U);
    EXPECT_EQ(list.Rows().front().Name(), "a.mrv");
    list.Recover(list.Rows().front().id);
    EXPECT_EQ(list.Rows().size(), 1U);
    EXPECT_FALSE(list.Has(1));
    list.Recover(1);  // a second click
  }
  ASSERT_EQ(charts->manager.Documents().size(), 1U);
  EXPECT_EQ(OpenCharts::AuthorOf(*charts->manager.Documents().front()), "Ann");
  EXPECT_EQ(LeftFor(charts), 2U) << "the recovered one is unsaved still, the other one untouched";
}

TEST_F(RecoveryListTest, SavesUnderANameThatTheUserChooses) {
  const std::string copy = folder.Path("copy.mrv");
  {
    RecoveryList list = Listed(*charts);
    list.SaveAs(1);
    EXPECT_EQ(dialogs.suggestion, path);
    EXPECT_TRUE(list.Has(1)) << "cancelled";
    dialogs.path = folder.Path("no/where.mrv");
    boxes.Expect(dialogs.path + "\n\n" + LoadText(IDS_COMMAND_FAILED));
    list.SaveAs(1);
    EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_ICONHAND));
    EXPECT_TRUE(list.Has(1));
    dialogs.path = copy;
    list.SaveAs(1);
    EXPECT_FALSE(list.Has(1));
    dialogs.path.clear();
    list.SaveAs(2);
    EXPECT_EQ(dialogs.suggestion, "Chart1.mrv");
  }
  LayoutMgr chart;
  EXPECT_EQ(ModelFile::Load(copy, chart), "");
  chart.PlaceWithoutWindow(LayoutMgr::Size::Stored);
  EXPECT_EQ(chart.GetProperties().Author, "Ann");
  EXPECT_EQ(folder.Read("a.mrv"), ModelFile::ToDisk(SmallChart()));
  EXPECT_EQ(LeftFor(charts), 1U);
}

TEST_F(RecoveryListTest, DiscardsAfterAQuestionOnly) {
  {
    RecoveryList list = Listed(*charts);
    boxes.Expect("a.mrv", MessageAnswer::No);
    list.Discard(1);
    EXPECT_EQ(boxes.LastFlags(), kConfirmFlags);
    EXPECT_TRUE(list.Has(1));
    boxes.Expect("Chart1", MessageAnswer::Yes);
    list.Discard(2);
    EXPECT_FALSE(list.Has(2));
  }
  EXPECT_EQ(LeftFor(charts), 1U);
  EXPECT_EQ(folder.Read("a.mrv"), ModelFile::ToDisk(SmallChart()));
}

}  // namespace

}  // namespace morvane
