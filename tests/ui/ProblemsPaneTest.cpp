#include <QMainWindow>
#include <QTreeWidget>

#include "shell/qt/ProblemsPane.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

TEST(ProblemsPaneTest, ComesWithTheFirstProblemUnlessPutAwayAndHearsWhatIsDoneWithARow) {
  std::vector<std::string> heard;
  std::string fix = "Mend it";
  QMainWindow frame;
  auto* pane = new ProblemsPane(
      {[&](const Problem& problem) { return problem.id == 0 ? fix : std::string(); },
       [&](const Problem& problem) { heard.push_back("chosen " + problem.message); },
       [&](const Problem& problem) { heard.push_back("fix " + problem.message); }},
      &frame);
  frame.addDockWidget(Qt::BottomDockWidgetArea, pane);
  frame.resize(800, 500);
  frame.show();
  EXPECT_FALSE(pane->isVisible());
  const std::vector<Problem> found{
      {.message = "No beginning"},
      {.id = 7, .message = "State 7 is lost", .object = "State 7", .complaint = "is lost"}};
  pane->Show(found);
  QApplication::processEvents();
  ASSERT_TRUE(pane->isVisible());
  const QTreeWidget& list = pane->Window();
  ASSERT_EQ(list.topLevelItemCount(), 2);
  EXPECT_EQ(list.topLevelItem(0)->text(2), "Mend it");
  EXPECT_EQ(list.topLevelItem(1)->text(1), "is lost");

  const auto click = [&](int row, int column) {
    heard.clear();
    const QRect cell = list.visualRect(list.model()->index(row, column));
    SendMouse(*list.viewport(), QEvent::MouseButtonPress, cell.center());
    SendMouse(*list.viewport(), QEvent::MouseButtonRelease, cell.center());
    return heard.empty() ? std::string() : heard.back();
  };
  EXPECT_EQ(click(1, 2), "chosen State 7 is lost") << "there is nothing to mend";
  EXPECT_EQ(click(0, 2), "fix No beginning");
  fix.clear();
  EXPECT_EQ(click(0, 2), "chosen No beginning") << "another change has made it impossible";

  pane->close();
  pane->Show({});
  pane->Show(found);
  EXPECT_FALSE(pane->isVisible());
  pane->ShowPart(true);
  EXPECT_TRUE(pane->isVisible());
}

}  // namespace

}  // namespace morvane
