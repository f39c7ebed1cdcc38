#include <QTextBlock>

#include "codegen/qt/GeneratorWindow.h"
#include "codegen/qt/ToolOutput.h"
#include "drawing/qt/QtText.h"
#include "platform/qt/QtUiThread.h"
#include "tests/support/OpenCharts.h"
#include "tests/support/TestSystem.h"
#include "tests/support/Tools.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// Runs the dialog in its window; the test's steps run inside its loop.
class GeneratorWindowTest : public testing::Test {
 protected:
  void Run(GeneratorKind kind, const std::function<void(GeneratorWindow&)>& steps) {
    CGenerateCppDlg dialog(kind);
    dialog.SetDesignFile("/home/caf\xE9/lift.mrv");
    InWindow(steps);
    dialog.DoModal();
  }
  /// Does something in the window that opens next.
  void InWindow(const std::function<void(GeneratorWindow&)>& steps) {
    QTimer::singleShot(0, [this, steps] {
      auto* window = dynamic_cast<GeneratorWindow*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      output = window->findChild<ToolOutput*>();
      steps(*window);
    });
  }
  /// The texts of all labels of a window, in one.
  static QString Labels(const QWidget& window) {
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) texts += label->text();
    return texts.join("|");
  }
  /// Where a line of the output stands, in its viewport.
  QPoint PlaceOf(int line) const {
    const QTextCursor cursor(output->document()->findBlockByNumber(line));
    return output->cursorRect(cursor).center() + QPoint(20, 0);
  }
  void ClickOn(QPoint place) {
    SendMouse(*output->viewport(), QEvent::MouseButtonPress, place);
    SendMouse(*output->viewport(), QEvent::MouseButtonRelease, place);
  }
  static QPushButton* Button(const QWidget& window, const QString& text) {
    for (auto* button : window.findChildren<QPushButton*>()) {
      if (button->text().remove('&') == text) return button;
    }
    return nullptr;
  }
  bool IsAtEnd() const {
    return output->verticalScrollBar()->value() == output->verticalScrollBar()->maximum();
  }

  QtUiThread uiThread;
  const UseService<UiThread> use{uiThread};
  QtGeneratorHost host;
  TestProcesses processes;
  ToolOutput* output = nullptr;
};

TEST_F(GeneratorWindowTest, ShowsTheFieldsAndRunsByTheDefaultButton) {
  processes.instead = "none";
  Run(GeneratorKind::Cpp, [this](GeneratorWindow& window) {
    EXPECT_EQ(window.windowTitle(), "C++ Code Generation");
    const auto boxes = window.findChildren<QLineEdit*>();
    ASSERT_EQ(boxes.size(), 3);
    EXPECT_EQ(boxes[0]->text(), QString::fromUtf8("/home/caf\xC3\xA9/lift.mrv"));
    EXPECT_EQ(boxes[1]->text(), QString::fromUtf8("/home/caf\xC3\xA9"));
    EXPECT_TRUE(boxes[0]->isReadOnly() && boxes[1]->isReadOnly() && output->isReadOnly());
    window.findChild<QCheckBox*>()->click();
    SendKey(window, Qt::Key_Return);
    ASSERT_EQ(processes.started.size(), 1U);
    EXPECT_EQ(output->toPlainText(), ToQString("Unable to start " + processes.started[0] + "\n"));
    EXPECT_EQ(boxes[2]->text(), ToQString(processes.started[0]));
    EXPECT_TRUE(Labels(window).contains("Could not be started"));
    EXPECT_EQ(processes.started[0].find("-g"), std::string::npos);
    EXPECT_TRUE(processes.started[0].ends_with(" -d /home/caf\xE9/lift.mrv"));
    Button(window, "Close")->click();
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_F(GeneratorWindowTest, TheBoxTakesTextInAnyPiecesFollowsItsEndAndHasItsLimits) {
  Run(GeneratorKind::Xml, [this](GeneratorWindow& window) {
    const auto* debug = window.findChild<QCheckBox*>();
    EXPECT_FALSE(debug->isEnabled() || debug->isChecked());
    for (const char c :
         std::string("gr\xC3\xBC\xC3\x9F\x65\r\ncaf\xC3\xA9\x01\xE2\x80\xA9|\nend")) {
      window.Append({&c, 1});
    }
    EXPECT_EQ(output->toPlainText(),
              QString::fromUtf8("gr\xC3\xBC\xC3\x9F\x65\ncaf\xC3\xA9  |\nend"));
    window.Clear();
    for (int i = 0; i < 200; ++i) window.Append("line\n");
    EXPECT_TRUE(IsAtEnd());
    output->verticalScrollBar()->setValue(0);
    window.Append("more\n");
    EXPECT_EQ(output->verticalScrollBar()->value(), 0) << "the user reads";
    for (int i = 0; i < 3; ++i) window.Append(std::string(1 << 20, 'x') + "\nend");
    EXPECT_LE(output->document()->characterCount(), 1 << 20);
    EXPECT_TRUE(output->toPlainText().endsWith("x\nend"));
    for (int i = 0; i < 3; ++i) window.Append(std::string(1 << 20, '\n') + "end");
    EXPECT_EQ(output->document()->blockCount(), 20000);
    EXPECT_TRUE(output->toPlainText().endsWith("\nend"));
    window.close();
  });
}

TEST_F(GeneratorWindowTest, AMessageWithAPlaceIsALinkToItsObject) {
  const TempFolder folder;
  OpenCharts charts(folder.Path("store"));
  const std::string path = folder.Write("Two.mrv", ChartText(StateRecord(101, {10, 10, 40, 30}) +
                                                             StateRecord(102, {50, 10, 90, 30})));
  LayoutMgr& view = OpenCharts::ViewOf(charts.Open(path));
  ScriptedMessageBoxes boxes;
  const auto isSelected = [&view](int id) { return FindShape(view, id)->IsInSelection(); };
  InWindow([&](GeneratorWindow& window) {
    window.Append("Two.mrv:3: error: GenericState 101 is odd\nplain\n");
    window.Append("Two.mrv:9: warning: GenericState 102");
    ClickOn(PlaceOf(1));
    EXPECT_FALSE(isSelected(101) || isSelected(102)) << "no link";
    ClickOn(PlaceOf(0));
    EXPECT_TRUE(isSelected(101));
    ClickOn({output->viewport()->width() - 2, PlaceOf(2).y()});
    EXPECT_TRUE(isSelected(101)) << "beside the text";
    SendMouse(*output->viewport(), QEvent::MouseButtonPress, PlaceOf(2));
    SendMouse(*output->viewport(), QEvent::MouseMove, PlaceOf(2) + QPoint(60, 0), Qt::LeftButton);
    SendMouse(*output->viewport(), QEvent::MouseButtonRelease, PlaceOf(2) + QPoint(60, 0));
    EXPECT_TRUE(isSelected(101)) << "a drag selects text";
    output->moveCursor(QTextCursor::End);
    SendKey(*output, Qt::Key_Return);
    EXPECT_TRUE(isSelected(102) && !isSelected(101));
    EXPECT_TRUE(processes.started.empty()) << "the default button was not meant";
    delete FindShape(view, 101);
    boxes.Expect("no longer on the chart");
    ClickOn(PlaceOf(0));
    window.close();
  });
  DialogGenerators().Run(ID_GENERATE_CPP, view);
}

TEST_F(GeneratorWindowTest, AnEndlessFloodLeavesTimeForTheUser) {
  processes.instead = ToolLine("lines 0");
  QTimer timer;
  int turns = 0;
  Run(GeneratorKind::Java, [&](GeneratorWindow& window) {
    Button(window, "Generate")->click();
    QObject::connect(&timer, &QTimer::timeout, &window, [&] {
      if (output->document()->blockCount() < 1000 || ++turns < 10) return;
      EXPECT_TRUE(IsAtEnd());
      SendKey(window, Qt::Key_Escape);
    });
    timer.start(1);
  });
  EXPECT_EQ(turns, 10);
  EXPECT_FALSE(HasChildren()) << "the tool is gone";
}

}  // namespace

}  // namespace morvane
