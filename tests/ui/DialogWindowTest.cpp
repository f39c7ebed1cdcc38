#include "codegen/CCodegenSheet.h"
#include "dialogs/CColorComboEx.h"
#include "dialogs/CDefaultSettingDlg.h"
#include "dialogs/CEventEditor.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/LinePens.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/PenPicker.h"
#include "dialogs/PrinterSetup.h"
#include "dialogs/StatePropDlg.h"
#include "platform/qt/QtFontDialog.h"
#include "tests/ui/Canvas.h"
#include "tests/ui/OpenDialog.h"
#include "tests/ui/WindowTest.h"

namespace {

/// One of each dialog.
struct AllDialogs {
  LayoutMgr chart;
  StatePropDlg state;
  MesgPropDlg mesg;
  CLineProperty line;
  PrinterSetup printer;
  CEventEditor event;
  EntryExitEditor texts;
  EditMesgDlg note;
  LayoutMgrPropDlg model;
  CCodegenSheet sheet;
  FindReplaceDlg find{chart.GetModel()};
  CDefaultSettingDlg& settings = CDefaultSettingDlg::Instance();
  std::vector<CDialog*> list{&state, &mesg,  &line,  &printer, &event,   &texts,
                             &note,  &model, &sheet, &find,    &settings};

  /// Runs each dialog and `act` in its window.
  void Run(const std::function<void(CDialog&, QtDialogWindow&)>& act) {
    OpenDialog open;
    for (CDialog* dialog : list) {
      open.Run(*dialog, [&](QtDialogWindow& window) { act(*dialog, window); });
    }
  }
};

QColor ColorOf(COLORREF color) {
  return {static_cast<int>(GetRValue(color)), static_cast<int>(GetGValue(color)),
          static_cast<int>(GetBValue(color))};
}

TEST(DialogWindow, EveryControlHasANameAndRoom) {
  AllDialogs().Run([](CDialog& dialog, QtDialogWindow& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), dialog.Caption());
    EXPECT_TRUE(window.isModal());
    for (QWidget* child : window.findChildren<QWidget*>()) {
      const std::string name = dialog.Caption() + ": " + child->objectName().toStdString();
      if (child->objectName().startsWith("control")) {
        EXPECT_FALSE(child->accessibleName().isEmpty()) << name;
      }
      const bool ours = child->isVisible() && (child->objectName().startsWith("control") ||
                                               qobject_cast<QLabel*>(child) != nullptr);
      if (!ours) continue;
      EXPECT_GE(child->width(), child->minimumSizeHint().width()) << name;
      EXPECT_GE(child->height(), child->minimumSizeHint().height()) << name;
    }
  });
}

TEST(DialogWindow, TabGoesThroughTheControlsInOrder) {
  AllDialogs all;
  all.Run([&all](CDialog& dialog, QtDialogWindow& window) {
    if (&dialog == &all.sheet) return;  // pages that don't show are left out
    const int first = OpenDialog::FocusId();
    std::vector<int> visited;
    do {
      visited.push_back(OpenDialog::FocusId());
      OpenDialog::Key(Qt::Key_Tab, "\t");
    } while (OpenDialog::FocusId() != first && visited.size() < 50);
    std::vector<int> expected;
    for (const DialogControl& control : dialog.Controls()) {
      const auto* widget = OpenDialog::Find<QWidget>(window, control.id);
      if (widget != nullptr && control.enabled) expected.push_back(control.id);
    }
    EXPECT_EQ(visited, expected) << dialog.Caption();
  });
}

TEST(DialogWindow, KeysAndTitleBarClose) {
  OpenDialog open;
  StatePropDlg dialog;
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

TEST(DialogWindow, BoxesGrowWithTheWindow) {
  OpenDialog open;
  EntryExitEditor dialog;
  open.Run(dialog, [](QtDialogWindow& window) {
    auto* box = OpenDialog::Find<QPlainTextEdit>(window, EntryExitEditor::IDC_EXIT);
    const QSize before = box->size();
    window.resize(window.size() + QSize(200, 200));
    QApplication::processEvents();
    EXPECT_EQ(box->width(), before.width() + 200);
    EXPECT_EQ(box->height(), before.height() + 100);
    EXPECT_EQ(box->lineWrapMode(), QPlainTextEdit::NoWrap);
  });
}

TEST(DialogWindow, ClicksReachTheRules) {
  OpenDialog open;
  StatePropDlg dialog;
  open.Run(dialog, [&](QtDialogWindow& window) {
    auto* name = OpenDialog::Find<QLineEdit>(window, StatePropDlg::IDC_NAME);
    name->setText("typed");
    EXPECT_TRUE(OpenDialog::Find<QWidget>(window, StatePropDlg::IDC_BG_COLOR)->isEnabled());
    OpenDialog::Find<QAbstractButton>(window, StatePropDlg::IDC_TRANSPARENT)->click();
    EXPECT_FALSE(OpenDialog::Find<QWidget>(window, StatePropDlg::IDC_BG_COLOR)->isEnabled());
    EXPECT_EQ(dialog.name, "typed");
    EXPECT_EQ(name->text(), "typed");
  });
}

/// A dialog around a list that notes the selections it is told of.
class ListDialog : public CDialog {
 public:
  ListDialog() : CDialog("List") {
    DialogControl& list = Add(DialogControl::Kind::List, 100, "");
    list.columns = {{"A", 125}, {"B", 0}};
    list.rows = {{"1", "x"}, {"2", "y\nz"}, {"3", std::string(1000, 'w')}};
  }
  std::vector<std::vector<int>> told;

 protected:
  void OnClicked(int id) override { told.push_back(Control(id).selectedRows); }
};

TEST(DialogWindow, ListTellsOfTheUsersSelectionsOnly) {
  OpenDialog open;
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
    const QPointF beside(5, list->viewport()->height() - 5);
    QMouseEvent release(QEvent::MouseButtonRelease, beside, list->viewport()->mapToGlobal(beside),
                        Qt::RightButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(list->viewport(), &release);
    QApplication::processEvents();
    EXPECT_EQ(dialog.told.size(), before + 1);
    EXPECT_TRUE(dialog.told.back().empty());
  });
}

TEST(DialogWindow, ColourItemsArePaintedByTheirSteps) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    for (int index = 0; index < 16; ++index) {
      Canvas canvas(60, 24, scale);
      CColorComboEx::PaintItem(*canvas.DC(), index, {2, 2, 58, 22}, false);
      const auto at = [&](int x, int y) {
        return canvas.Image().pixelColor(static_cast<int>((x + 0.5) * scale),
                                         static_cast<int>((y + 0.5) * scale));
      };
      const QColor color = ColorOf(kLineColours[static_cast<std::size_t>(index)]);
      EXPECT_EQ(at(30, 12), color);
      EXPECT_EQ(at(4, 4), color);
      EXPECT_EQ(at(3, 12), QColor(Qt::white)) << "between the colour and the frame";
      EXPECT_EQ(at(2, 12), QColor(Qt::black));
      EXPECT_EQ(at(57, 21), QColor(Qt::black));
      EXPECT_EQ(at(58, 12), QColor(Qt::white));
    }
  }
}

TEST(DialogWindow, PenItemsShowTheirStyle) {
  const auto row = [](int index, int y, bool selected) {
    Canvas canvas(100, 20);
    PenPicker::PaintItem(*canvas.DC(), index, {0, 0, 100, 20}, selected);
    QString pixels;
    for (int x = 0; x < 100; ++x) pixels += canvas.At(x, y) < 100 ? '#' : '.';
    return pixels;
  };
  QStringList kinds;
  for (int index = 0; index < 5; ++index) {
    const QString line = row(index, 10, false);
    EXPECT_EQ(line.indexOf('#'), 10);
    EXPECT_EQ(line.mid(90), QString(10, '.'));
    EXPECT_FALSE(kinds.contains(line)) << index;
    kinds << line;
    EXPECT_EQ(row(index, 2, false).count('#'), 0);
    EXPECT_GT(row(index, 2, true).count('#'), 30) << "the focus";
  }
  EXPECT_EQ(kinds[4].count('#'), 80);
  Canvas canvas(100, 20);
  PenPicker::PaintItem(*canvas.DC(), 0, {0, 0, 100, 20}, false);
  EXPECT_EQ(canvas.At(99, 5), 0xC4);
  EXPECT_EQ(canvas.At(98, 5), 0xFF);
}

TEST(DialogWindow, ComboShowsAndTakesItsItem) {
  OpenDialog open;
  CLineProperty dialog;
  dialog.colourIndex = 13;
  dialog.styleIndex = 99;
  EXPECT_TRUE(open.Run(dialog, [](QtDialogWindow& window) {
    auto* colors = OpenDialog::Find<QComboBox>(window, CLineProperty::IDC_COLOR);
    const QImage shown = colors->grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.width() / 3, shown.height() / 2), QColor(0, 0, 255));
    EXPECT_EQ(OpenDialog::Find<QComboBox>(window, CLineProperty::IDC_STYLE)->currentIndex(), -1);
    colors->setFocus();
    OpenDialog::Key(Qt::Key_Up);
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  }));
  EXPECT_EQ(dialog.colourIndex, 12);
  EXPECT_EQ(dialog.styleIndex, 99);
}

TEST(DialogWindow, FollowsADarkPalette) {
  const QPalette former = QApplication::palette();
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Button, QColor(50, 50, 50));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(role, QColor(230, 230, 230));
  }
  QApplication::setPalette(dark);
  AllDialogs().Run([](CDialog& dialog, QtDialogWindow& window) {
    EXPECT_EQ(window.grab().toImage().pixelColor(1, 1), QColor(30, 30, 30)) << dialog.Caption();
    for (const QWidget* child : window.findChildren<QWidget*>()) {
      EXPECT_TRUE(child->styleSheet().isEmpty());
      EXPECT_EQ(child->palette().color(QPalette::Active, QPalette::WindowText),
                QColor(230, 230, 230));
    }
  });
  QApplication::setPalette(former);
}

TEST(FontDialog, KeepsAFaceThatTheMachineLacks) {
  const QtFontDialog dialog({"No Such Face", 85, 0x112233}, nullptr);
  EXPECT_EQ(dialog.Choice().face, "No Such Face");
  EXPECT_EQ(dialog.Choice().tenths, 80);
  EXPECT_EQ(dialog.Choice().color, 0x112233U);
}

}  // namespace
