#include "platform/qt/QtView.h"
#include "shell/qt/StartRequests.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

class StartRequestsTest : public MainWindow<FakeDocument, FakeView> {
 protected:
  StartRequestsTest() { requests.Serve(*frame); }

  std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (const auto& document : frame->Manager().Documents())
      titles.push_back(document->GetTitle());
    return titles;
  }
  /// Runs the loop until the program shows that many charts.
  void WaitForCharts(std::size_t count) {
    RunUntil([&] { return Titles().size() >= count; });
  }
  /// Runs the loop over timers that are due before one of its own.
  static void LetTimersRun() {
    QEventLoop loop;
    QTimer::singleShot(kLater, &loop, &QEventLoop::quit);
    loop.exec();
  }

  /// After a window that is free has been asked, milliseconds
  static constexpr int kLater = 120;

  StartRequests requests;
};

TEST_F(StartRequestsTest, OpenTheirChartOrANewOne) {
  using Texts = std::vector<std::string>;
  requests.Add({});
  WaitForCharts(1);
  EXPECT_EQ(Titles(), Texts{"Morvane_Diagram1"});
  requests.Add({});  // is served: nothing was done with the chart
  requests.Add({"/x/One.mrv", "", ""});
  WaitForCharts(2);
  EXPECT_EQ(Titles(), (Texts{"Morvane_Diagram1", "One.mrv"}));
  requests.Add({});
  WaitForCharts(3);
  EXPECT_EQ(Titles().back(), "Morvane_Diagram2");
  frame->showMinimized();
  requests.Add({"/x/One.mrv", "", ""});
  RunUntil([&] { return !frame->isMinimized(); });
  EXPECT_EQ(frame->ActiveChild()->Document()->GetTitle(), "One.mrv");
  EXPECT_EQ(Titles().size(), 3U);
}

TEST_F(StartRequestsTest, AChartWithChangesStaysAndANewOneComesBesideIt) {
  Open().SetModifiedFlag(true);
  requests.Add({});
  WaitForCharts(2);
  frame->Manager().Documents().front()->SetModifiedFlag(false);
}

TEST_F(StartRequestsTest, WaitForDialogsMenusAndGestures) {
  FakeView& view = ViewOf(Open("/x/One.mrv"));
  requests.Add({"/x/Two.mrv", "", ""});
  InNextWindow<QDialog>([&](QDialog&) {
    LetTimersRun();
    EXPECT_EQ(Titles().size(), 1U) << "in a dialog";
  });
  QDialog(frame.get()).exec();
  WaitForCharts(2);

  requests.Add({"/x/Three.mrv", "", ""});
  QMenu menu(frame.get());
  menu.popup({0, 0});
  LetTimersRun();
  EXPECT_EQ(Titles().size(), 2U) << "in a menu";
  menu.close();
  WaitForCharts(3);

  view.onPress = [&] {
    QTimer::singleShot(kLater, frame.get(), [&] {
      EXPECT_EQ(Titles().size(), 3U) << "in a gesture";
      frame->ActiveChild()->Window()->EndLoop();
    });
    requests.Add({"/x/Four.mrv", "", ""});
    while (view.NextMessage().kind != Message::Kind::Quit) {
    }
  };
  frame->Manager().OpenDocumentFile("/x/One.mrv");
  SendMouse(*frame->ActiveChild()->Window()->viewport(), QEvent::MouseButtonPress, {5, 5});
  WaitForCharts(4);
  EXPECT_EQ(Titles().back(), "Four.mrv");
}

}  // namespace

}  // namespace morvane
