#include "platform/qt/QtTreeModel.h"

#include <utility>

#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"
#include "platform/CTreeCtrl.h"

namespace morvane {

namespace {

/// No pane is so wide that it shows more of a text.
constexpr std::size_t kShownBytes = 1000;
constexpr std::size_t kReadBytes = 2 * kShownBytes;

}  // namespace

QtTreeModel::QtTreeModel(const CTreeCtrl& tree, QObject* parent)
    : QAbstractItemModel(parent), tree(tree) {}

void QtTreeModel::Close() {
  if (!open) return;
  beginResetModel();
  open = false;
}

void QtTreeModel::Open() {
  if (open) return;
  open = true;
  endResetModel();
}

void QtTreeModel::SetIcons(QList<QIcon> pictures) { icons = std::move(pictures); }

TreeItem* QtTreeModel::ItemOf(const QModelIndex& index) {
  return static_cast<TreeItem*>(index.internalPointer());
}

QModelIndex QtTreeModel::IndexOf(const TreeItem* item) const {
  if (item == nullptr || !open) return {};
  return createIndex(static_cast<int>(tree.RowOf(*item)), 0, item);
}

QModelIndex QtTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
  return createIndex(row, 0, tree.Children(ItemOf(parent))[static_cast<std::size_t>(row)]);
}

QModelIndex QtTreeModel::parent(const QModelIndex& index) const {
  return open && index.isValid() ? IndexOf(ItemOf(index)->Parent()) : QModelIndex();
}

int QtTreeModel::rowCount(const QModelIndex& parent) const {
  if (!open) return 0;
  if (parent.isValid()) return ItemOf(parent)->ChildCount();
  return static_cast<int>(tree.Children(nullptr).size());
}

int QtTreeModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

bool QtTreeModel::hasChildren(const QModelIndex& parent) const { return rowCount(parent) > 0; }

QVariant QtTreeModel::data(const QModelIndex& index, int role) const {
  if (!open || !index.isValid()) return {};
  const TreeItem* item = ItemOf(index);
  if (role == Qt::DisplayRole) {
    const std::string text = ToUtf8(item->Text(), kReadBytes);
    return QtFont::Printable(LetterPrefix(text, kShownBytes));
  }
  if (role != Qt::DecorationRole) return {};
  return icons.value(tree.Selected() == item ? item->SelectedImage() : item->Image());
}

}  // namespace morvane
