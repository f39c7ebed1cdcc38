#include "shell/qt/ProblemsPane.h"

#include <algorithm>
#include <utility>

#include <QHeaderView>
#include <QMainWindow>
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

/// What is said of the object, which has a column of its own.
std::string WithoutObject(const Problem& problem) {
  const bool named = !problem.object.empty() && problem.message.starts_with(problem.object);
  return named ? problem.message.substr(problem.object.size() + 1) : problem.message;
}

bool IsSame(const ProblemsPane::Row& a, const ProblemsPane::Row& b) {
  return a.problem.id == b.problem.id && a.problem.message == b.problem.message && a.fix == b.fix;
}

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
  list->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list, &QTreeWidget::itemClicked, this, &ProblemsPane::Click);
  connect(list, &QTreeWidget::currentItemChanged, this, &ProblemsPane::Choose);
  connect(list, &QWidget::customContextMenuRequested, this, &ProblemsPane::ShowMenu);
  setWidget(list);
  KeepTitleWhole(*this);
  hide();
}

void ProblemsPane::Show(std::vector<Row> shown) {
  const bool isFirst = rows.empty() && !shown.empty();
  if (!std::ranges::equal(rows, shown, IsSame)) {
    rows = std::move(shown);
    Fill();
  }
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
  for (const Row& row : rows) AddRow(row);
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    QTreeWidgetItem* item = list->topLevelItem(i);
    if (item->text(kObject) == object && item->text(kMessage) == message) {
      list->setCurrentItem(item);
    }
  }
}

void ProblemsPane::AddRow(const Row& row) {
  const Problem& problem = row.problem;
  auto* item = new QTreeWidgetItem(
      list, {ToQString(problem.object), ToQString(WithoutObject(problem)), ToQString(row.fix)});
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

const ProblemsPane::Row* ProblemsPane::RowOf(QTreeWidgetItem* item) const {
  const int at = item == nullptr ? -1 : list->indexOfTopLevelItem(item);
  return at < 0 || at >= std::ssize(rows) ? nullptr : &rows[static_cast<std::size_t>(at)];
}

void ProblemsPane::Choose(QTreeWidgetItem* item) const {
  if (const Row* row = RowOf(item)) callbacks.chosen(row->problem);
}

void ProblemsPane::Click(QTreeWidgetItem* item, int column) const {
  const Row* row = RowOf(item);
  if (row == nullptr) return;
  // A row may go while it is put right.
  const Problem problem = row->problem;
  column == kFix && !row->fix.empty() ? callbacks.fix(problem) : callbacks.chosen(problem);
}

void ProblemsPane::ShowMenu(const QPoint& place) {
  const Row* row = RowOf(list->itemAt(place));
  if (row == nullptr) row = RowOf(list->currentItem());
  if (row == nullptr) return;
  const Problem problem = row->problem;
  auto* menu = new QMenu(list);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  connect(menu->addAction(ToQString(Translate("Show on the Chart"))), &QAction::triggered, this,
          [this, problem] { callbacks.chosen(problem); });
  if (!row->fix.empty()) {
    connect(menu->addAction(ToQString(row->fix)), &QAction::triggered, this,
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
