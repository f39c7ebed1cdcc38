#include <QLayout>
#include <QListView>
#include <QListWidget>
#include <QMdiArea>
#include <QTabWidget>

#include "platform/Clipboard.h"
#include "platform/qt/QtScriptEngine.h"
#include "platform/qt/QtView.h"
#include "shell/qt/CoverageView.h"
#include "shell/qt/EventButtons.h"
#include "shell/qt/RunPane.h"
#include "shell/qt/TestsView.h"
#include "tests/machine/ChartSketch.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

constexpr const char* kLamp = R"(
initial 1
  at 2 2 6 6
state 2 Off
  at 10 10 40 30
state 3 On
  at 4 34 44 100
  initial 4
    at 6 42 10 46
  state 5 Dim
    at 12 48 32 60
  state 6 Bright
    at 12 70 32 82
arrow 11 1 2
arrow 12 2 3
message 22 12 go
arrow 13 3 2
message 23 13 go, never
arrow 14 4 5
arrow 15 5 6
message 25 15 up | mood > 3
)";

/// A chart that runs in the main window, with the real engine.
class RunPaneTest : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  RunPaneTest() : path(folder.Write("Lamp.mrv", ModelFile::ToDisk(ChartSketch(kLamp)))) {
    // Panes that slide to their place would take their time.
    frame->setAnimated(false);
    chart = &ViewOf(Open(path));
    before = chart->ModelText();
  }

  RunPane& Pane() { return *frame->findChild<RunPane*>(); }
  std::string Active() {
    QApplication::processEvents();
    for (const QLabel* label : Pane().findChildren<QLabel*>()) {
      const QString text = label->text();
      if (text.startsWith("Step")) return text.mid(text.indexOf("   ") + 3).toStdString();
    }
    return {};
  }
  QtView& Window() {
    return *dynamic_cast<CChildFrame&>(*frame->Area().currentSubWindow()).Window();
  }
  QImage ChartOnScreen() {
    // A pane that goes makes room, which is taken a turn later.
    QApplication::processEvents();
    QApplication::processEvents();
    const QtView& window = Window();
    return OnScreen(*frame).copy({window.mapTo(frame.get(), QPoint()), window.size()});
  }
  void Send(const QString& event) {
    for (QPushButton* button : Pane().findChild<EventButtons*>()->findChildren<QPushButton*>()) {
      if (!button->isHidden() && button->text() == event) return button->click();
    }
    ADD_FAILURE() << event.toStdString();
  }
  QString FirstButton() {
    auto* events = Pane().findChild<EventButtons*>();
    const auto* layout = events->widget()->layout();
    return qobject_cast<QPushButton*>(layout->itemAt(0)->widget())->text();
  }
  template <class Page>
  Page& Bring() {
    auto* page = Pane().findChild<Page*>();
    Pane().findChild<QTabWidget*>()->setCurrentWidget(page);
    return *page;
  }

  TempFolder folder;
  const std::string path;
  QtScriptEngines engines;
  const UseService<ScriptEngines> useEngines{engines};
  LayoutMgr* chart = nullptr;
  std::string before;
};

TEST_F(RunPaneTest, DrivesTheChartWhichStaysAsItIs) {
  chart->GetModel().SelectAll();
  const auto selected = chart->GetModel().SelectedShapes();
  const QImage still = ChartOnScreen();
  ASSERT_TRUE(frame->RunCommand(ID_SIMULATE));
  EXPECT_TRUE(Pane().isVisible());
  EXPECT_TRUE(IsChecked(ID_SIMULATE));
  EXPECT_EQ(Active(), "Off");
  Send("go");
  EXPECT_EQ(Active(), "On \u203A Dim");
  EXPECT_EQ(FirstButton(), "go");
  EXPECT_NE(ChartOnScreen(), still);
  boxes.Expect("mood > 3", MessageAnswer::Yes);
  Send("up");
  EXPECT_EQ(Active(), "On \u203A Bright");
  frame->RunCommand(ID_RUN_BACK);
  frame->RunCommand(ID_RUN_BACK);
  EXPECT_EQ(Active(), "On");
  EXPECT_TRUE(frame->StateOf(ID_RUN_CONTINUE).enabled);

  // Nothing gets at the chart.
  for (const unsigned id : {ID_DELETE, ID_EDIT_UNDO, ID_EDIT_PASTE, ID_TOOL_STATE, ID_EDIT_CUT,
                            ID_MODEL_PROPERTIES, ID_REROUTE, ID_FIND_REPLACE, ID_DUPLICATE}) {
    EXPECT_FALSE(frame->StateOf(id).enabled) << id;
    EXPECT_FALSE(frame->RunCommand(id)) << id;
  }
  QtView& window = Window();
  const POINT place = chart->ToClient(CentreOf(chart->GetModel().Find(2)->GetBounds()));
  SendMouse(window, QEvent::MouseButtonPress, {place.x, place.y});
  SendMouse(window, QEvent::MouseMove, {place.x + 40, place.y + 40});
  SendMouse(window, QEvent::MouseButtonRelease, {place.x + 40, place.y + 40});
  for (const int key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Left}) SendKey(window, key);
  EXPECT_TRUE(frame->RunCommand(ID_ZOOM_IN));
  EXPECT_EQ(chart->ModelText(), before);

  EXPECT_TRUE(frame->RunCommand(ID_SIMULATE));
  EXPECT_FALSE(Pane().isVisible());
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_EQ(chart->GetZoom(), LayoutMgr::kNormalZoom);
  EXPECT_EQ(chart->GetModel().SelectedShapes(), selected);
  EXPECT_EQ(ChartOnScreen(), still);
  EXPECT_FALSE(frame->ActiveDocument()->IsModified());
  EXPECT_TRUE(frame->StateOf(ID_DELETE).enabled);
}

TEST_F(RunPaneTest, ARunGoesWithItsChartAndWithAnotherText) {
  frame->RunCommand(ID_SIMULATE);
  Open();
  QApplication::processEvents();
  EXPECT_FALSE(Pane().isVisible()) << "the other chart doesn't run";
  boxes.Expect("nothing on the chart");
  frame->RunCommand(ID_SIMULATE);
  EXPECT_FALSE(IsChecked(ID_SIMULATE));
  frame->Manager().CloseDocument(*frame->ActiveDocument());
  QApplication::processEvents();
  EXPECT_TRUE(Pane().isVisible());
  EXPECT_EQ(Active(), "Off");

  std::string reason;
  EXPECT_TRUE(chart->ReplaceText(SmallChart(), reason)) << reason;
  EXPECT_FALSE(Pane().isVisible());
  EXPECT_EQ(chart->ModelText(), SmallChart());
  frame->RunCommand(ID_SIMULATE);
  EXPECT_TRUE(Pane().isVisible());
  Pane().close();
  QApplication::processEvents();
  EXPECT_FALSE(IsChecked(ID_SIMULATE));
  EXPECT_TRUE(frame->StateOf(ID_EDIT_SELECT_ALL).enabled);
}

TEST_F(RunPaneTest, ShowsWhatWasReachedAndRunsTheTestsBesideTheChart) {
  frame->RunCommand(ID_SIMULATE);
  Send("go");
  auto& coverage = Bring<CoverageView>();
  QStringList missing;
  auto& list = *coverage.findChild<QListWidget*>();
  for (int i = 0; i < list.count(); ++i) missing << list.item(i)->text();
  EXPECT_EQ(missing.join("; ").toStdString(),
            "Event never; Event up; State Bright; Transition 13: On \u2192 Off (go, never); "
            "Transition 15: Dim \u2192 Bright (up)");
  const QImage plain = ChartOnScreen();
  coverage.findChild<QCheckBox*>()->click();
  EXPECT_NE(ChartOnScreen(), plain);

  folder.Write("Lamp.mrvtest", "case good\nsend go\nexpect On\ncase bad\nsend go\nexpect Off\n");
  frame->RunCommand(ID_RUN_TESTS);
  auto& tests = *Pane().findChild<TestsView*>()->findChild<QTreeWidget*>();
  ASSERT_EQ(tests.topLevelItemCount(), 2);
  EXPECT_EQ(tests.topLevelItem(0)->text(1), "passed");
  EXPECT_EQ(tests.topLevelItem(1)->text(1).left(10), "6: state \"");

  Bring<CoverageView>();
  frame->Manager().CloseDocument(*frame->ActiveDocument());
  EXPECT_EQ(list.count(), 0) << "of a chart that is gone";
  coverage.findChild<QCheckBox*>()->click();
}

TEST_F(RunPaneTest, ReplaysATraceOfTheClipboard) {
  struct OneText : Clipboard {
    ClipboardError Put(const std::vector<Item>&) override { return ClipboardError::None; }
    std::optional<std::string> Get(const std::string&, ClipboardError&) override { return text; }
    bool IsAvailable(const std::string&) override { return true; }
    std::string text = "take 11\nenter Off\nevent go\nexit Off\ntake 12\nenter Bright\n";
  } clipboard;
  const UseService<Clipboard> use{clipboard};
  frame->RunCommand(ID_REPLAY_PASTED);
  EXPECT_TRUE(Pane().isVisible());
  EXPECT_FALSE(Pane().findChild<QTabWidget*>()->isTabVisible(0));
  EXPECT_NE(Active().find("line 6: \"enter Bright\", but the chart has \"enter On\""),
            std::string::npos);
  auto& lines = *Pane().findChild<QListView*>();
  EXPECT_EQ(lines.model()->rowCount(), 6);
  lines.setCurrentIndex(lines.model()->index(1, 0));
  EXPECT_EQ(Active().substr(0, 3), "Off");

  // What several traces reach counts together.
  clipboard.text =
      "take 11\nenter Off\nevent go\nexit Off\ntake 12\nenter On\ntake 14\nenter Dim\n";
  frame->RunCommand(ID_REPLAY_PASTED);
  EXPECT_EQ(lines.model()->rowCount(), 8);
  EXPECT_TRUE(Bring<CoverageView>().findChild<QLabel*>()->text().startsWith("States: 4/4 (100 %)"));
}

}  // namespace

}  // namespace morvane
