#include "shell/qt/ProblemsPane.h"

#include <algorithm>
#include <utility>

#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyle>
#include <QTreeWidget>

#include "drawing/qt/QtText.h"
#include "platform/Profile.h"
#include "resources/Texts.h"
#include "shell/qt/DockTitle.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Frame";
constexpr const char* kKey = "Problems";
constexpr int kHeight = 110;
constexpr int kObjectWidth = 240;
enum ListColumn : int { kObject, kMessage, kFix };

bool IsWanted() { return Service<Profile>::Get().GetInt(kSection, kKey, 1) != 0; }

void Want(bool wanted) { Service<Profile>::Get().WriteString(kSection, kKey, wanted ? "1" : "0"); }

/// A row whose quick fix is found when it is to be seen.
class ProblemItem : public QTreeWidgetItem {
 public:
  using FixText = std::function<QString()>;

  ProblemItem(QTreeWidget* list, const QStringList& texts, FixText fixText)
      : QTreeWidgetItem(list, texts), fixText(std::move(fixText)) {}
  QVariant data(int column, int role) const override {
    const bool isFix = column == kFix && role == Qt::DisplayRole;
    return isFix ? fixText() : QTreeWidgetItem::data(column, role);
  }

 private:
  FixText fixText;
};

}  // namespace

ProblemsPane::ProblemsPane(Callbacks callbacks, QWidget* parent)
    : QDockWidget(ToQString(Translate("Problems")), parent),
      callbacks(std::move(callbacks)),
      list(new QTreeWidget(this)) {
  setObjectName("problems");
  list->setAccessibleName(windowTitle());
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setHeaderLabels({ToQString(Translate("Object")), ToQString(Translate("Problem")),
                         ToQString(Translate("Quick Fix"))});
  list->header()->setStretchLastSection(false);
  list->header()->resizeSection(kObject, kObjectWidth);
  list->header()->setSectionResizeMode(kMessage, QHeaderView::Stretch);
  list->header()->setSectionResizeMode(kFix, QHeaderView::ResizeToContents);
  list->header()->setResizeContentsPrecision(0);
  list->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list, &QTreeWidget::itemClicked, this, &ProblemsPane::Click);
  connect(list, &QTreeWidget::currentItemChanged, this, &ProblemsPane::Choose);
  connect(list, &QWidget::customContextMenuRequested, this, &ProblemsPane::ShowMenu);
  setWidget(list);
  KeepTitleWhole(*this);
  hide();
}

void ProblemsPane::Show(const std::vector<Problem>& shown) {
  const bool isFirst = problems.empty() && !shown.empty();
  if (problems != shown) {
    problems = shown;
    Fill();
  }
  // What can be done about them may have changed.
  list->viewport()->update();
  if (isFirst && IsWanted()) Appear();
}

/// As low as its first rows; the user may have made it higher.
void ProblemsPane::Appear() {
  show();
  auto* frame = qobject_cast<QMainWindow*>(parentWidget());
  if (frame != nullptr && !std::exchange(hasAppeared, true)) {
    frame->resizeDocks({this}, {kHeight}, Qt::Vertical);
  }
}

void ProblemsPane::Fill() {
  const QSignalBlocker quiet(list);
  const QTreeWidgetItem* current = list->currentItem();
  const QString object = current != nullptr ? current->text(kObject) : QString();
  const QString message = current != nullptr ? current->text(kMessage) : QString();
  list->clear();
  for (const Problem& problem : problems) AddRow(problem);
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = list->topLevelItem(i);
    if (item->text(kObject) == object && item->text(kMessage) == message) {
      list->setCurrentItem(item);
    }
  }
}

void ProblemsPane::AddRow(const Problem& problem) {
  // The object has a column of its own.
  const std::string& said = problem.object.empty() ? problem.message : problem.complaint;
  const QStringList texts{ToQString(problem.object), ToQString(said)};
  auto* item = new ProblemItem(list, texts,
                               [this, problem] { return ToQString(callbacks.fixFor(problem)); });
  const bool isError = problem.severity == Problem::Severity::Error;
  const auto icon = isError ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning;
  item->setIcon(kObject, style()->standardIcon(icon));
  item->setData(kObject, Qt::AccessibleDescriptionRole,
                ToQString(Translate(isError ? "Error" : "Warning")));
  item->setToolTip(kMessage, item->text(kMessage));
  QFont link = list->font();
  link.setUnderline(true);
  item->setFont(kFix, link);
  item->setForeground(kFix, palette().link());
}

const Problem* ProblemsPane::ProblemOf(QTreeWidgetItem* item) const {
  const int at = item == nullptr ? -1 : list->indexOfTopLevelItem(item);
  return at < 0 || at >= std::ssize(problems) ? nullptr : &problems[static_cast<std::size_t>(at)];
}

void ProblemsPane::Choose(QTreeWidgetItem* item) const {
  if (const Problem* problem = ProblemOf(item)) callbacks.chosen(*problem);
}

void ProblemsPane::Click(QTreeWidgetItem* item, int column) const {
  const Problem* clicked = ProblemOf(item);
  if (clicked == nullptr) return;
  // A row may go while it is put right.
  const Problem problem = *clicked;
  const bool fixes = column == kFix && !callbacks.fixFor(problem).empty();
  fixes ? callbacks.fix(problem) : callbacks.chosen(problem);
}

void ProblemsPane::ShowMenu(const QPoint& place) {
  const Problem* meant = ProblemOf(list->itemAt(place));
  if (meant == nullptr) meant = ProblemOf(list->currentItem());
  const bool isOfObject = meant != nullptr && meant->id != 0;
  if (!isOfObject && (meant == nullptr || callbacks.fixFor(*meant).empty())) return;
  const Problem problem = *meant;
  auto* menu = new QMenu(list);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (isOfObject) {
    connect(menu->addAction(ToQString(Translate("Show on the Chart"))), &QAction::triggered, this,
            [this, problem] { callbacks.chosen(problem); });
  }
  if (const std::string fix = callbacks.fixFor(problem); !fix.empty()) {
    connect(menu->addAction(ToQString(fix)), &QAction::triggered, this,
            [this, problem] { callbacks.fix(problem); });
  }
  menu->popup(list->viewport()->mapToGlobal(place));
}

void ProblemsPane::ShowPart(bool show) {
  Want(show);
  show ? Appear() : hide();
}

void ProblemsPane::closeEvent(QCloseEvent* event) {
  Want(false);
  QDockWidget::closeEvent(event);
}

}  // namespace morvane
