#include "checks/ChartProblems.h"
#include "checks/ProblemChecker.h"
#include "surface/ObjectMarks.h"
#include "tests/support/ChartTest.h"
#include "tests/support/UiQueue.h"

namespace morvane {

namespace {

class ChartProblemsTest : public testing::Test {
 protected:
  void Change(const std::string& records) {
    std::string reason;
    ASSERT_TRUE(chart->ReplaceText(ChartText(records), reason)) << reason;
  }
  void CatchUp(std::size_t count) {
    EXPECT_TRUE(queue.RunUntil([&] { return problems->Problems().size() == count; }));
  }
  std::string TextAt(POINT model) const { return chart->GetMarks().TextAt(chart->ToClient(model)); }
  /// What a window shows, or the paper.
  std::size_t Drawn(bool onScreen) const {
    NullDC reference;
    CMetaFileDC dc(reference);
    onScreen ? chart->OnDraw(dc) : chart->GetModel().DrawAll(&dc);
    return dc.Close().records.size();
  }

  const std::string twins = StateRecord(1, {10, 10, 30, 30}) + StateRecord(2, {20, 20, 50, 40});
  UiQueue queue;
  ProblemChecker checker;
  std::unique_ptr<LayoutMgr> chart = LoadChart(ChartText(""));
  FakeWindow window{*chart};
  std::unique_ptr<ChartProblems> problems = std::make_unique<ChartProblems>(*chart, checker, [] {});
};

TEST_F(ChartProblemsTest, FollowTheChartAndMarkItsObjectsInTheWindowAlone) {
  Change(twins);
  const std::size_t bare = Drawn(true);
  const std::size_t paper = Drawn(false);
  CatchUp(1);
  EXPECT_NE(TextAt({30, 10}).find("overlaps GenericState 2"), std::string::npos);
  EXPECT_GT(Drawn(true), bare);
  EXPECT_EQ(Drawn(false), paper);
  EXPECT_TRUE(problems->Show(problems->Problems().front()));
  EXPECT_TRUE(FindShape(*chart, 1)->IsInSelection());

  // The mark goes where its object goes, and with it.
  const Problem overlap = problems->Problems().front();
  Find<GenericState>(*chart, 1)->MoveTo({12, 10, 32, 30});
  chart->TakeSnapshot();
  EXPECT_EQ(TextAt({30, 10}), "");
  EXPECT_NE(TextAt({32, 10}), "");
  delete FindShape(*chart, 1);
  chart->GetMarks().Follow();
  EXPECT_EQ(TextAt({32, 10}), "");
  EXPECT_FALSE(problems->Show(overlap));
}

TEST_F(ChartProblemsTest, OfSeveralChangesTheLastCountsAndAnEmptySheetIsNoMistake) {
  for (int i = 0; i < 20; ++i) Change(i % 2 == 0 ? twins : StateRecord(1, {10, 10, 30, 30}));
  Change(twins);
  CatchUp(1);
  Change("");
  CatchUp(0);
  EXPECT_EQ(TextAt({30, 10}), "");
}

TEST_F(ChartProblemsTest, WhatIsFoundTooLateIsLost) {
  Change(twins);
  problems.reset();
  // Of those that wait the checker takes the one with the least key first.
  bool lastIsDone = false;
  checker.Check(reinterpret_cast<const void*>(~std::uintptr_t{0}), chart->SnapshotText(),
                [&](const std::vector<Problem>&) { lastIsDone = true; });
  EXPECT_TRUE(queue.RunUntil([&] { return lastIsDone; }));
  EXPECT_EQ(TextAt({30, 10}), "");
}

}  // namespace

}  // namespace morvane
