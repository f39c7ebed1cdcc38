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
enum ListColumn : int { kObject, kMessage };

bool IsWanted() { return Service<Profile>::Get().GetInt(kSection, kKey, 1) != 0; }

void Want(bool wanted) { Service<Profile>::Get().WriteString(kSection, kKey, wanted ? "1" : "0"); }

/// What is said of the object, which has a column of its own.
std::string WithoutObject(const Problem& problem) {
  const bool named = !problem.object.empty() && problem.message.starts_with(problem.object);
  return named ? problem.message.substr(problem.object.size() + 1) : problem.message;
}

bool IsSame(const Problem& a, const Problem& b) { return a.id == b.id && a.message == b.message; }

}  // namespace

ProblemsPane::ProblemsPane(OnChosen chosen, QWidget* parent)
    : QDockWidget(ToQString(Translate("Problems")), parent),
      chosen(std::move(chosen)),
      list(new QTreeWidget(this)) {
  setObjectName("problems");
  list->setAccessibleName(windowTitle());
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setHeaderLabels({ToQString(Translate("Object")), ToQString(Translate("Problem"))});
  list->header()->resizeSection(kObject, kObjectWidth);
  connect(list, &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* item) { Choose(list->indexOfTopLevelItem(item)); });
  connect(list, &QTreeWidget::currentItemChanged, this,
          [this](QTreeWidgetItem* item) { Choose(list->indexOfTopLevelItem(item)); });
  setWidget(list);
  KeepTitleWhole(*this);
  hide();
}

void ProblemsPane::Show(const std::vector<Problem>& shown) {
  const bool isFirst = problems.empty() && !shown.empty();
  if (!std::ranges::equal(problems, shown, IsSame)) {
    problems = shown;
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
  for (const Problem& problem : problems) {
    auto* item =
        new QTreeWidgetItem(list, {ToQString(problem.object), ToQString(WithoutObject(problem))});
    const bool isError = problem.severity == Problem::Severity::Error;
    item->setIcon(kObject, style()->standardIcon(isError ? QStyle::SP_MessageBoxCritical
                                                         : QStyle::SP_MessageBoxWarning));
    item->setData(kObject, Qt::AccessibleDescriptionRole,
                  ToQString(Translate(isError ? "Error" : "Warning")));
    item->setToolTip(kMessage, item->text(kMessage));
    if (item->text(kObject) == object && item->text(kMessage) == message) {
      list->setCurrentItem(item);
    }
  }
}

void ProblemsPane::Choose(int row) const {
  if (row >= 0 && row < std::ssize(problems)) chosen(problems[static_cast<std::size_t>(row)]);
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
