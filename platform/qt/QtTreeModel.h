#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QList>

namespace morvane {

class CTreeCtrl;
class TreeItem;

/// The items of a `CTreeCtrl` as a view of Qt's asks for them. While the tree changes the model is
/// closed: it has no rows, and a view holds on to none.
class QtTreeModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  QtTreeModel(const CTreeCtrl& tree, QObject* parent);

  void Close();
  void Open();
  bool IsOpen() const { return open; }
  void SetIcons(QList<QIcon> pictures);

  static TreeItem* ItemOf(const QModelIndex& index);
  QModelIndex IndexOf(const TreeItem* item) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const CTreeCtrl& tree;
  bool open = true;
  QList<QIcon> icons;
};

}  // namespace morvane
