#include <QAccessible>

#include "codegen/qt/GeneratorWindow.h"
#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/qt/CodeBox.h"
#include "platform/qt/QtFontDialog.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/Places.h"
#include "tests/ui/Canvas.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

namespace {

class DialogWindow : public testing::Test {
 protected:
  /// Runs each dialog that has a window of the common kind, and `act` in it.
  void RunAll(const std::function<void(Dialog&, QtDialogWindow&)>& act) {
    for (Dialog* dialog : all.list) {
      if (dialog == &all.generator) continue;  // it has a window of its own
      open.Run(*dialog, [&](QtDialogWindow& window) { act(*dialog, window); });
    }
  }

  OpenDialog open;
  AllDialogs all;
};

TEST_F(DialogWindow, EveryControlHasANameAndRoomInADarkThemeToo) {
  const QColor paper(30, 30, 30);
  const QColor ink(230, 230, 230);
  const QPalette former = QApplication::palette();
  QPalette dark(ink, QColor(50, 50, 50), ink, paper, paper, ink, ink, QColor(20, 20, 20), paper);
  QApplication::setPalette(dark);
  RunAll([&](Dialog& dialog, QtDialogWindow& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), dialog.Caption());
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(window.grab().toImage().pixelColor(1, 1), paper) << dialog.Caption();
    for (QWidget* child : window.findChildren<QWidget*>()) {
      const std::string name = dialog.Caption() + ": " + child->objectName().toStdString();
      EXPECT_TRUE(child->styleSheet().isEmpty()) << name;
      EXPECT_EQ(child->palette().color(QPalette::Active, QPalette::WindowText), ink) << name;
      const bool isControl = child->objectName().startsWith("control");
      EXPECT_TRUE(!isControl || !child->accessibleName().isEmpty()) << name;
      if (!child->isVisible() || (!isControl && qobject_cast<QLabel*>(child) == nullptr)) continue;
      EXPECT_GE(child->width(), child->minimumSizeHint().width()) << name;
      EXPECT_GE(child->height(), child->minimumSizeHint().height()) << name;
    }
  });
  QApplication::setPalette(former);
}

/// The names of all that takes the keyboard in a window, and of its groups. Empty ones, and two
/// alike among those that show, leave the user alone.
void ExpectSpokenNames(const QWidget& window) {
  std::set<QString> shown;
  for (QWidget* child : window.findChildren<QWidget*>()) {
    const bool isGroup = child->inherits("QGroupBox");
    if (child->focusPolicy() == Qt::NoFocus && !isGroup) continue;
    // The parts of a control speak for it.
    if (child->parentWidget()->inherits("QAbstractItemView") || child->inherits("QTabBar"))
      continue;
    if (child->inherits("QTabWidget")) continue;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(child);
    ASSERT_NE(spoken, nullptr);
    const QString name = spoken->text(QAccessible::Name);
    const std::string where = window.windowTitle().toStdString() + ": " + name.toStdString() +
                              " (" + child->metaObject()->className() + ")";
    EXPECT_NE(name, "") << where;
    EXPECT_FALSE(name.contains(QRegularExpression("&\\S|: ?$"))) << where;
    if (!isGroup && child->isVisible()) {
      EXPECT_TRUE(shown.insert(name).second) << where;
    }
  }
  EXPECT_FALSE(shown.empty());
}

TEST_F(DialogWindow, WhatTakesTheKeyboardSaysWhatItIs) {
  RunAll([](Dialog&, QtDialogWindow& window) { ExpectSpokenNames(window); });
  GeneratorWindow generator(all.generator, nullptr);
  generator.show();
  ExpectSpokenNames(generator);
}

TEST_F(DialogWindow, TabGoesThroughTheControlsInOrder) {
  RunAll([this](Dialog& dialog, QtDialogWindow& window) {
    if (&dialog == &all.sheet) return;  // pages that don't show are left out
    const int first = OpenDialog::FocusId();
    std::vector<int> visited;
    do {
      visited.push_back(OpenDialog::FocusId());
      const bool isCode = qobject_cast<CodeBox*>(QApplication::focusWidget()) != nullptr;
      OpenDialog::Key(Qt::Key_Tab, "\t", isCode ? Qt::ControlModifier : Qt::NoModifier);
    } while (OpenDialog::FocusId() != first && visited.size() < 50);
    std::vector<int> expected;
    for (const DialogControl& control : dialog.Controls()) {
      const auto* widget = OpenDialog::Find<QWidget>(window, control.id);
      if (widget != nullptr && control.enabled) expected.push_back(control.id);
    }
    EXPECT_EQ(visited, expected) << dialog.Caption();
  });
}

TEST_F(DialogWindow, ReturnAcceptsAndEscapeAndTitleBarCancel) {
  StatePropDlg& dialog = all.state;
  EXPECT_TRUE(open.Run(dialog, [](QtDialogWindow&) { OpenDialog::Key(Qt::Key_Return, "\r"); }));
  EXPECT_FALSE(open.Run(dialog, [&](QtDialogWindow&) {
    OpenDialog::Key(Qt::Key_Escape);
    EXPECT_FALSE(dialog.IsOpen());
  }));
  EXPECT_FALSE(open.Run(dialog, [&](QtDialogWindow& window) {
    window.close();
    EXPECT_FALSE(dialog.IsOpen());
  }));
}

TEST_F(DialogWindow, BoxesGrowWithTheWindow) {
  open.Run(all.texts, [](QtDialogWindow& window) {
    auto* box = OpenDialog::Find<CodeBox>(window, EntryExitEditor::kExitId);
    const QSize before = box->size();
    window.resize(window.size() + QSize(200, 200));
    QApplication::processEvents();
    EXPECT_EQ(box->size(), before + QSize(200, 100));
  });
}

TEST_F(DialogWindow, ClicksReachTheRules) {
  open.Run(all.state, [&](QtDialogWindow& window) {
    auto* name = OpenDialog::Find<QLineEdit>(window, StatePropDlg::kNameId);
    name->setText("typed");
    for (const bool enabled : {true, false}) {
      auto* colour = OpenDialog::Find<QWidget>(window, StatePropDlg::kBgColourId);
      EXPECT_EQ(colour->isEnabled(), enabled);
      OpenDialog::Click(window, StatePropDlg::kTransparentId);
    }
    EXPECT_EQ(all.state.name, "typed");
    EXPECT_EQ(name->text(), "typed");
  });
}

/// Pixel by pixel: nothing in them is smoothed.
TEST_F(DialogWindow, PickersPaintTheirItemsAsTheyDid) {
  Canvas sheet(320, 16 * 24);
  for (const bool selected : {false, true}) {
    for (int index = 0; index < 16; ++index) {
      const RECT item = RECT{4, 1, 76, 23} + POINT{selected ? 80 : 0, index * 24};
      CColorComboEx::PaintItem(*sheet.DC(), index, item, selected);
      if (index < 5) {
        PenPicker::PaintItem(*sheet.DC(), index, item + POINT{160, 0}, selected);
      }
    }
  }
  const QString path = QString::fromStdString(SourcePath("tests/golden/Pickers.png"));
  if (qEnvironmentVariableIsSet("MORVANE_UPDATE_GOLDEN")) sheet.Image().save(path);
  const QImage wanted(path);
  EXPECT_EQ(sheet.Image(), wanted.convertToFormat(QImage::Format_RGB32));
}

TEST_F(DialogWindow, ComboShowsAndTakesItsItem) {
  all.line.colourIndex = 13;
  all.line.styleIndex = 99;
  EXPECT_TRUE(open.Run(all.line, [](QtDialogWindow& window) {
    auto* colours = OpenDialog::Find<QComboBox>(window, CLineProperty::kColourId);
    const QImage shown = colours->grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.width() / 3, shown.height() / 2), QColor(0, 0, 255));
    EXPECT_EQ(colours->currentText(), "Blue") << "for who listens";
    EXPECT_EQ(OpenDialog::Find<QComboBox>(window, CLineProperty::kStyleId)->currentIndex(), -1);
    colours->setFocus();
    OpenDialog::Key(Qt::Key_Up);
    OpenDialog::Click(window, IDOK);
  }));
  EXPECT_EQ(all.line.colourIndex, 12);
  EXPECT_EQ(all.line.styleIndex, 99);
}

TEST(FontDialog, KeepsAFaceThatTheMachineLacks) {
  const QtFontDialog dialog({"No Such Face", 85, 0x112233}, nullptr);
  EXPECT_EQ(dialog.Choice().face, "No Such Face");
  EXPECT_EQ(dialog.Choice().tenths, 80);
  EXPECT_EQ(dialog.Choice().colour, 0x112233U);
}

}  // namespace

}  // namespace morvane
