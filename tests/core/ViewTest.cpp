#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

std::unique_ptr<LayoutMgr> Shown(const std::string& text) {
  auto chart = LoadChart(text);
  chart->ApplyZoom();
  chart->TakeSnapshot();
  return chart;
}

TEST(View, UndoGoesBackTwentyStepsAndRedoForth) {
  const auto chart = Shown(SmallChart());
  std::string& author = chart->GetProperties().Author;
  for (int change = 1; change <= 25; ++change) {
    author = std::to_string(change);
    chart->TakeSnapshot();
    chart->TakeSnapshot();  // a text that hasn't changed is no step
  }
  int now = 25;
  while (chart->OnCommand(ID_EDIT_UNDO)) EXPECT_EQ(author, std::to_string(--now));
  EXPECT_EQ(now, 5);
  while (chart->OnCommand(ID_EDIT_REDO)) EXPECT_EQ(author, std::to_string(++now));
  EXPECT_EQ(now, 25);
  // A change after an undo drops what could have been redone.
  chart->OnCommand(ID_EDIT_UNDO);
  chart->TakeSnapshot();
  EXPECT_TRUE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
  chart->OnCommand(ID_ZOOM_IN);
  author = "Somebody";
  chart->TakeSnapshot();
  EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
  // The zoom goes back too, and nothing stays selected.
  chart->OnCommand(ID_EDIT_SELECT_ALL);
  chart->OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(author, "24");
  EXPECT_EQ(chart->GetTotalSize(), (SIZE{9000, 9000}));
  EXPECT_TRUE(chart->GetSelection().IsEmpty());
}

}  // namespace

}  // namespace morvane
