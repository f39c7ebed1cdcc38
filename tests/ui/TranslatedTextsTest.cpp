#include <QAbstractItemView>
#include <QGroupBox>
#include <QHeaderView>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QTabBar>

#include "codegen/qt/GeneratorWindow.h"
#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtScriptEngine.h"
#include "review/ChartComparison.h"
#include "shell/RecoveryList.h"
#include "shell/qt/CSplashDlg.h"
#include "shell/qt/CompareWindow.h"
#include "shell/qt/ProblemsPane.h"
#include "shell/qt/RecoveryWindow.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/PseudoLanguage.h"
#include "tests/support/UiQueue.h"
#include "tests/ui/MainWindow.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

namespace {

/// What is called the same in every language, and what the tests' own charts hold.
const QRegularExpression kNames(
    "\\w+\\.mrv\\w*|State (Idle|Busy)|Final state|Morvane|https://\\S+|\\bMine\\b|\\bOther\\b|"
    "-\\bEdit\\b-|English|Verdana|DejaVu Sans|Examples?|Socket_C|\\bgo\\b|Ctrl|Shift|Alt|\\bF\\d+");
const QRegularExpression kWord("\\p{L}{2,}");

QStringList ModelTexts(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
  QStringList texts;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    for (int column = 0; column < model.columnCount(parent); ++column) {
      const QModelIndex index = model.index(row, column, parent);
      for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole}) {
        texts << index.data(role).toString();
      }
      texts << ModelTexts(model, index);
    }
  }
  return texts;
}

/// What a widget, its menu entries and its rows say to who looks, points or listens.
QStringList TextsOf(const QWidget& widget) {
  // These are the toolkit's, which brings its own translations.
  const QObject* holder = widget.parent();
  if (widget.inherits("QDockWidgetTitleButton") ||
      qobject_cast<const QTabBar*>(holder) != nullptr ||
      qobject_cast<const QMdiSubWindow*>(holder) != nullptr)
    return {};
  QStringList texts{widget.windowTitle(), widget.toolTip(), widget.statusTip(),
                    widget.accessibleName(), widget.accessibleDescription()};
  for (const char* property : {"text", "title", "placeholderText"}) {
    // What a field holds is the user's; what it says where it may only be read is not.
    if (qobject_cast<const QLineEdit*>(&widget) != nullptr && property == QString("text")) continue;
    texts << widget.property(property).toString();
  }
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i) << tabs->tabToolTip(i);
  }
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
    if (view->model() == nullptr || view->objectName() == "fontFaces") return texts;
    const bool isHeader = qobject_cast<const QHeaderView*>(view) != nullptr;
    for (int i = 0; i < view->model()->columnCount(); ++i) {
      if (isHeader) texts << view->model()->headerData(i, Qt::Horizontal).toString();
    }
    // The folders of this machine are its own.
    if (!isHeader && !view->inherits("morvane::QtTreeCtrl")) texts << ModelTexts(*view->model());
  }
  if (qobject_cast<const QMdiSubWindow*>(&widget) != nullptr) return texts;
  for (const QAction* action : widget.actions()) {
    texts << action->text() << action->toolTip() << action->statusTip();
  }
  return texts;
}

/// The texts of a window that nobody can translate.
QStringList LeftEnglish(const QWidget& window) {
  QStringList left;
  QList<QWidget*> all = window.findChildren<QWidget*>();
  all.prepend(const_cast<QWidget*>(&window));
  for (const QWidget* widget : all) {
    for (const QString& text : TextsOf(*widget)) {
      QString outside = QString::fromStdString(PseudoLanguage::Unmarked(text.toStdString()));
      outside.remove(kNames);
      if (outside.contains(kWord)) left << QString(widget->metaObject()->className()) + ": " + text;
    }
  }
  return left;
}

void ExpectTranslated(const QWidget& window) {
  EXPECT_EQ(LeftEnglish(window).join('\n').toStdString(), "");
}

/// What is there before the windows come.
struct Before {
  PseudoLanguage language;
  UiQueue queue;
};

class TranslatedTexts : public Before, public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  TempFolder folder;
  QtScriptEngines engines;
  const UseService<ScriptEngines> useEngines{engines};
};

TEST_F(TranslatedTexts, OfTheMainWindowItsPanesMenusBarsAndARun) {
  ExpectTranslated(*frame);
  const std::string broken = folder.Write(
      "Broken.mrv", ModelFile::ToDisk(ChartText(StateRecord(1, {10, 10, 60, 50}, "Mine", "{") +
                                                InitialRecord(2, {0, 0, 4, 4}) +
                                                StateRecord(3, {70, 60, 90, 80}, "Other"))));
  Open(broken);
  auto& list = *frame->findChild<ProblemsPane*>()->findChild<QTreeWidget*>();
  EXPECT_TRUE(queue.RunUntil([&list] { return list.topLevelItemCount() > 1; }));
  ExpectTranslated(*frame);

  const std::string records =
      InitialRecord(1, {2, 2, 6, 6}) + StateRecord(2, {10, 10, 40, 30}, "Mine") +
      StateRecord(3, {10, 60, 40, 90}, "Other") + TransitionRecord(4, 1, 2) +
      TransitionRecord(5, 2, 3) + MesgRecord(6, 5, {50, 40, 70, 50}, "go");
  Open(folder.Write("Sound.mrv", ModelFile::ToDisk(ChartText(records))));
  folder.Write("Sound.mrvtest", "case go\nexpect Other\n");
  ASSERT_TRUE(frame->RunCommand(ID_SIMULATE));
  QApplication::processEvents();
  ExpectTranslated(*frame);
  frame->RunCommand(ID_RUN_TESTS);
  QApplication::processEvents();
  ExpectTranslated(*frame);
}

TEST_F(TranslatedTexts, OfDialogs) {
  AllDialogs all;
  OpenDialog open;
  for (Dialog* dialog : all.list) {
    if (dialog == &all.generator) continue;
    open.Run(*dialog, [](QtDialogWindow& window) { ExpectTranslated(window); });
  }
  const GeneratorWindow generator(all.generator, nullptr);
  ExpectTranslated(generator);
}

TEST_F(TranslatedTexts, OfWindowsBesideTheMainOne) {
  QtMessageBoxes messages;
  for (const unsigned flags : {MB_OK, MB_OKCANCEL, MB_YESNO, MB_YESNOCANCEL}) {
    InNextWindow<QMessageBox>([](QMessageBox& box) { ExpectTranslated(box); });
    messages.Show("", flags);
  }
  RecoveryOffer offer;
  offer.path = "Mine.mrv";
  offer.text = SmallChart();
  offer.difference = "1";
  std::vector<RecoveryOffer> one;
  one.push_back(std::move(offer));
  RecoveryList offers(std::move(one), [](RecoveryOffer&) { return true; });
  ExpectTranslated(RecoveryWindow(offers));
  ExpectTranslated(CSplashDlg(true));
}

}  // namespace

}  // namespace morvane
