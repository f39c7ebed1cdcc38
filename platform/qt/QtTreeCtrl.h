#pragma once

#include <QTimer>
#include <QTreeView>

namespace morvane {

class CTreeCtrl;
class QtTreeModel;
class TreeItem;

/// The window of a `CTreeCtrl`. Whatever changes in the tree, the window looks at it anew once,
/// when the program is idle or somebody looks at the window.
class QtTreeCtrl : public QTreeView {
  Q_OBJECT

 public:
  /// `firstWidth` is what the window asks for, in pixels.
  QtTreeCtrl(CTreeCtrl& tree, int firstWidth, QWidget* parent = nullptr);
  ~QtTreeCtrl() override;

  /// Shows the tree as it is now.
  void Sync();
  /// Stays at its left edge, whatever is selected, until the user works with the window.
  void StartAtLeft() { staysLeft = true; }
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  /// The window looks anew when it is idle.
  void OnTreeChanging();
  void OnTreeSelected();
  void LoadIcons();
  void SyncFor(const QEvent& event);
  void ShowExpanded(const TreeItem* item);
  void ShowSelected();
  void BringUp(const QModelIndex& index);
  void OpenMenu();
  /// The user opened or closed an item.
  void OnToggled(const QModelIndex& index, bool expand);
  TreeItem* HitTest(QPoint p) const;
  QRect LabelRect(const QModelIndex& index) const;
  bool IsBesideLabel(QPoint p) const;

  CTreeCtrl& tree;
  QtTreeModel* treeModel;
  int firstWidth;
  QTimer syncTimer;
  int scrolledTo = 0;            ///< where the window stood when the tree began to change
  bool bringSelectedUp = false;  ///< at the next look
  bool staysLeft = false;
  bool showing = false;  ///< the window follows the tree, not the user
};

}  // namespace morvane
