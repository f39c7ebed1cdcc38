#include "shell/qt/VariableTable.h"

#include <utility>

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTimer>

#include "drawing/qt/QtText.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"

namespace morvane {

namespace {

enum TableColumn : int { kName, kValue };

}  // namespace

VariableTable::VariableTable(Assign assign, QWidget* parent)
    : QTreeWidget(parent), assign(std::move(assign)) {
  const QString name = ToQString(Translate("Variables"));
  setAccessibleName(name);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setHeaderLabels({ToQString(Translate("Variable")), ToQString(Translate("Value"))});
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  connect(this, &QTreeWidget::itemChanged, this, &VariableTable::Take);
}

void VariableTable::Show(const ChartRun* run) {
  // The user is typing: what is typed stays.
  if (state() == QAbstractItemView::EditingState) return;
  const QSignalBlocker quiet(this);
  clear();
  if (run == nullptr) return;
  for (const auto& [name, value] : run->Variables()) {
    auto* item = new QTreeWidgetItem(this, {ToQString(name), ToQString(value)});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (value.empty()) item->setToolTip(kValue, ToQString(Translate("Nothing gives it a value")));
  }
}

void VariableTable::Take(QTreeWidgetItem* item, int column) {
  if (column != kValue) return;
  const std::string name = ToBytes(item->text(kName));
  const std::string value = ToBytes(item->text(kValue));
  // Behind the end of the editing, as the table is filled anew.
  QTimer::singleShot(0, this, [this, name, value] { assign(name, value); });
}

}  // namespace morvane
