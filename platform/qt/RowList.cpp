#include "platform/qt/RowList.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeWidget>

#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

/// No more of a text fits into a row.
constexpr std::size_t kMaxShownBytes = 512;
constexpr std::size_t kReadBytes = 2 * kMaxShownBytes;
constexpr int kShownRows = 8;
constexpr int kShownLetters = 56;

QString CellText(const std::string& text) {
  const std::string utf8 = ToUtf8(text, kReadBytes);
  return QtFont::Printable(LetterPrefix(utf8, kMaxShownBytes));
}

/// A selection looks the same whether the list has the keyboard or not.
QPalette WithSteadySelection(QPalette palette) {
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
    palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
  }
  return palette;
}

}  // namespace

RowList::RowList(const DialogControl& control, QWidget* parent, OnClick onClick)
    : list(new QTreeWidget(parent)), onClick(std::move(onClick)) {
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->setPalette(WithSteadySelection(list->palette()));
  const QFontMetrics metrics = list->fontMetrics();
  list->setMinimumSize(metrics.averageCharWidth() * kShownLetters,
                       metrics.lineSpacing() * kShownRows);
  SetColumns(control.columns);
  list->viewport()->installEventFilter(this);
  connect(list, &QTreeWidget::itemSelectionChanged, this, [this] {
    if (!showing) this->onClick();
  });
}

QWidget* RowList::Widget() { return list; }

void RowList::SetColumns(const std::vector<DialogControl::Column>& columns) {
  QStringList titles;
  for (const DialogControl::Column& column : columns) titles << ToQString(column.title);
  list->setHeaderLabels(titles);
  list->header()->setStretchLastSection(true);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].width > 0) list->setColumnWidth(static_cast<int>(i), columns[i].width);
  }
}

bool RowList::eventFilter(QObject* watched, QEvent* event) {
  const bool handled = QObject::eventFilter(watched, event);
  if (event->type() == QEvent::MouseButtonRelease) {
    // After the list has changed its selection.
    QMetaObject::invokeMethod(
        this, [this] { onClick(); }, Qt::QueuedConnection);
  }
  return handled;
}

std::vector<int> RowList::SelectedRows() const {
  std::vector<int> selected;
  for (const QModelIndex& index : list->selectionModel()->selectedRows()) {
    selected.push_back(index.row());
  }
  std::sort(selected.begin(), selected.end());
  return selected;
}

void RowList::Take(DialogControl& control) { control.selectedRows = SelectedRows(); }

void RowList::Show(const DialogControl& control) {
  const QScopedValueRollback<bool> guard(showing, true);
  if (control.rows != rows) Fill(control.rows);
  if (control.selectedRows != SelectedRows()) Select(control.selectedRows);
}

void RowList::Fill(const std::vector<std::vector<std::string>>& newRows) {
  rows = newRows;
  list->clear();
  QList<QTreeWidgetItem*> items;
  for (const std::vector<std::string>& row : rows) {
    QStringList cells;
    for (const std::string& cell : row) cells << CellText(cell);
    items << new QTreeWidgetItem(cells);
  }
  list->addTopLevelItems(items);
}

void RowList::Select(const std::vector<int>& selected) {
  list->clearSelection();
  for (const int row : selected) list->topLevelItem(row)->setSelected(true);
  // The arrow keys go on from there.
  if (selected.empty()) return;
  QTreeWidgetItem* first = list->topLevelItem(selected.front());
  list->setCurrentItem(first, 0, QItemSelectionModel::NoUpdate);
  list->scrollToItem(first);
}

}  // namespace morvane
