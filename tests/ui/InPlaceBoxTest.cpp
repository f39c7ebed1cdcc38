#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/InPlaceText.h"
#include "platform/qt/QtView.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// A window that closes its box as soon as the user leaves it.
class TypingView : public FakeView {
 public:
  std::vector<std::string> taken;
  void OnTextBoxLeft(bool keep) override {
    const std::optional<std::string> text = CloseTextBox();
    taken.push_back(keep ? text.value_or("none") : "given up");
  }
};

class InPlaceBoxTest : public testing::Test {
 protected:
  InPlaceBoxTest() {
    widget->resize(200, 150);
    widget->show();
    QApplication::setActiveWindow(widget.get());
    QApplication::processEvents();
  }
  QWidget& Open(const std::string& text, bool severalLines) {
    view.OpenTextBox({.label = "Name",
                      .text = text,
                      .client = {150, 20, 190, 34},
                      .font = {},
                      .centred = !severalLines,
                      .severalLines = severalLines});
    return *QApplication::focusWidget();
  }

  TypingView view;
  std::unique_ptr<QtView> widget = std::make_unique<QtView>(view);
};

TEST_F(InPlaceBoxTest, TakesWhatIsTypedUntilAKeyEndsIt) {
  struct Case {
    bool severalLines;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* taken;
  };
  for (const Case& each : {Case{false, Qt::Key_Return, Qt::NoModifier, "x"},
                           Case{false, Qt::Key_Tab, Qt::NoModifier, "x"},
                           Case{false, Qt::Key_Escape, Qt::NoModifier, "given up"},
                           Case{true, Qt::Key_Return, Qt::ControlModifier, "x"},
                           Case{true, Qt::Key_Escape, Qt::NoModifier, "given up"}}) {
    QWidget& box = Open("Idle", each.severalLines);
    EXPECT_EQ(box.accessibleName(), "Name");
    SendKey(box, Qt::Key_X, "x");
    SendKey(box, each.key, {}, each.modifiers);
    EXPECT_EQ(view.taken, std::vector<std::string>{each.taken}) << each.key;
    EXPECT_TRUE(widget->hasFocus());
    view.taken.clear();
  }
}

TEST_F(InPlaceBoxTest, GrowsWithItsTextInsideTheWindow) {
  QWidget& line = Open("Idle", false);
  const QRect first = line.geometry();
  EXPECT_TRUE(widget->viewport()->rect().contains(first));
  EXPECT_LE(first.left(), 150);
  dynamic_cast<QLineEdit&>(line).setText(QString(100, 'W'));
  EXPECT_EQ(line.width(), widget->viewport()->width());

  QWidget& note = Open("one", true);
  const int height = note.height();
  for (int i = 0; i < 3; ++i) SendKey(note, Qt::Key_Return, "\r");
  EXPECT_GT(note.height(), height);
  for (int i = 0; i < 100; ++i) SendKey(note, Qt::Key_Return, "\r");
  EXPECT_TRUE(widget->viewport()->rect().contains(note.geometry()));
}

TEST_F(InPlaceBoxTest, EndsWhenTheKeyboardGoesAndNotBehindAMenu) {
  QWidget& box = Open("Idle", false);
  SendKey(box, Qt::Key_X, "x");
  QFocusEvent behindMenu(QEvent::FocusOut, Qt::PopupFocusReason);
  QCoreApplication::sendEvent(&box, &behindMenu);
  EXPECT_TRUE(view.taken.empty());
  widget->setFocus();
  EXPECT_EQ(view.taken, std::vector<std::string>{"x"});
  EXPECT_EQ(view.CloseTextBox(), std::nullopt);
}

TEST_F(InPlaceBoxTest, GivesBackWhatNobodyTouchedAndGoesWithItsWindow) {
  const std::string bytes =
      "gr\xF6\xDF"
      "e \xE2\x82\xAC";
  Open(bytes, false);
  EXPECT_EQ(view.CloseTextBox(), bytes);
  Open(bytes, true);
  widget.reset();
  EXPECT_TRUE(view.taken.empty());
  EXPECT_EQ(view.CloseTextBox(), std::nullopt);
}

}  // namespace

}  // namespace morvane
