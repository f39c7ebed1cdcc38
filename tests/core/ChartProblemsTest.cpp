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

TEST_F(ChartProblemsTest, QuickFixesLeaveNothingOfTheirProblemAsOneStep) {
  const std::string start = InitialRecord(1, {2, 12, 6, 16}) +
                            StateRecord(2, {17, 6, 27, 14}, "A") + TransitionRecord(3, 1, 2);
  struct Case {
    const char* what;
    std::string records;
    std::size_t before;
  };
  const Case cases[] = {
      {"Add an initial state", StateRecord(1, {10, 2, 30, 22}) + StateRecord(2, {60, 2, 80, 22}),
       1},
      {"Attach the free end",
       start + StateRecord(4, {17, 28, 27, 36}, "B") +
           TransitionRecord(5, 2, 0, "3 1 1 2", "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n"),
       1},
      {"Give the state a name of its own",
       start + StateRecord(4, {17, 24, 27, 32}, "A") + TransitionRecord(5, 2, 4), 1},
      {"Delete the message", start + MesgRecord(9, 77, {40, 40, 50, 46}), 1},
  };
  for (const Case& each : cases) {
    Change(each.records);
    CatchUp(each.before);
    const Problem problem = problems->Problems().front();
    EXPECT_EQ(problems->FixFor(problem), each.what) << problem.message;
    const std::string before = chart->ModelText();
    problems->Fix(problem);
    EXPECT_NE(chart->ModelText(), before) << each.what;
    queue.RunUntil([&] { return problems->Problems() != std::vector{problem}; });
    for (const Problem& left : problems->Problems()) EXPECT_NE(left.remedy, problem.remedy);
    chart->OnCommand(ID_EDIT_UNDO);
    EXPECT_EQ(chart->ModelText(), before) << each.what;
    queue.RunUntil([&] { return problems->Problems() == std::vector{problem}; });
    Change("");
    CatchUp(0);
  }
  EXPECT_EQ(problems->FixFor({.message = "lost", .remedy = Problem::Remedy::None}), "");
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
