#include <QAccessible>

#include "codegen/qt/GeneratorWindow.h"
#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/qt/CodeBox.h"
#include "platform/qt/QtFontDialog.h"
#include "tests/support/AllDialogs.h"
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

/// A dialog around a list that notes the selections it is told of.
class ListDialog : public Dialog {
 public:
  ListDialog() : Dialog("List") {
    DialogControl& list = Add(DialogControl::Kind::List, 100, "");
    list.columns = {{"A", 125}, {"B", 0}};
    list.rows = {{"1", "x"}, {"2", "y\nz"}, {"3", std::string(1000, 'w')}};
  }
  std::vector<std::vector<int>> told;

 protected:
  void OnClicked(int id) override { told.push_back(Control(id).selectedRows); }
};

TEST_F(DialogWindow, ListTellsOfTheUsersSelectionsOnly) {
  ListDialog dialog;
  open.Run(dialog, [&](QtDialogWindow& window) {
    auto* list = OpenDialog::Find<QTreeWidget>(window, 100);
    EXPECT_EQ(list->columnWidth(0), 125);
    EXPECT_EQ(list->topLevelItem(1)->text(1), "y z");
    list->setFocus();
    OpenDialog::Key(Qt::Key_Down);
    OpenDialog::Key(Qt::Key_Down, {}, Qt::ShiftModifier);
    EXPECT_EQ(dialog.told.back(), (std::vector<int>{1, 2}));
    const std::size_t before = dialog.told.size();
    dialog.Control(100).rows = {{"only", "row"}};
    dialog.Control(100).selectedRows.clear();
    window.Refresh();
    EXPECT_EQ(dialog.told.size(), before);
    EXPECT_EQ(list->topLevelItemCount(), 1);
    // A click beside the rows selects nothing new and still counts.
    SendMouse(*list->viewport(), QEvent::MouseButtonRelease, {5, list->viewport()->height() - 5},
              Qt::RightButton);
    QApplication::processEvents();
    EXPECT_EQ(dialog.told.size(), before + 1);
    EXPECT_TRUE(dialog.told.back().empty());
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
  const QString path = MORVANE_SOURCE_DIR "/tests/golden/Pickers.png";
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

TEST_F(DialogWindow, ComboOfTextsShowsAndTakesItsItem) {
  PreferencesDlg dialog({"English", "Fran\xC3\xA7\x61is"});
  dialog.language = 1;
  EXPECT_TRUE(open.Run(dialog, [](QtDialogWindow& window) {
    auto* languages = OpenDialog::Find<QComboBox>(window, PreferencesDlg::kLanguageId);
    EXPECT_EQ(languages->currentText(), "English");
    languages->setFocus();
    OpenDialog::Key(Qt::Key_Down);
    EXPECT_EQ(languages->currentText(), "Fran\u00E7ais");
    EXPECT_EQ(OpenDialog::Find<QComboBox>(window, PreferencesDlg::kReopenId)->currentText(),
              "Never");
    OpenDialog::Click(window, IDOK);
  }));
  EXPECT_EQ(dialog.language, 2);
  EXPECT_EQ(dialog.reopen, 0);
}

TEST(FontDialog, KeepsAFaceThatTheMachineLacks) {
  const QtFontDialog dialog({"No Such Face", 85, 0x112233}, nullptr);
  EXPECT_EQ(dialog.Choice().face, "No Such Face");
  EXPECT_EQ(dialog.Choice().tenths, 80);
  EXPECT_EQ(dialog.Choice().colour, 0x112233U);
}

}  // namespace

}  // namespace morvane
