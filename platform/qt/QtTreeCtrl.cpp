#include "platform/qt/QtTreeCtrl.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "drawing/qt/QtText.h"
#include "platform/CTreeCtrl.h"
#include "platform/qt/QtTreeModel.h"
#include "platform/qt/SvgIcon.h"

namespace morvane {

namespace {

constexpr int kIconSide = 16;
constexpr int kIndentation = 16;
/// So many rows around those in sight count for the width of the texts.
constexpr int kMeasuredRows = 100;

}  // namespace

QtTreeCtrl::QtTreeCtrl(CTreeCtrl& tree, int firstWidth, QWidget* parent)
    : QTreeView(parent),
      tree(tree),
      treeModel(new QtTreeModel(tree, this)),
      firstWidth(firstWidth) {
  setModel(treeModel);
  setHeaderHidden(true);
  // Texts that are wider than the pane can be scrolled to.
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setResizeContentsPrecision(kMeasuredRows);
  setHorizontalScrollMode(ScrollPerPixel);
  setUniformRowHeights(true);
  setIndentation(kIndentation);
  setIconSize({kIconSide, kIconSide});
  setFrameShape(NoFrame);
  setEditTriggers(NoEditTriggers);
  LoadIcons();

  syncTimer.setSingleShot(true);
  syncTimer.setInterval(0);
  connect(&syncTimer, &QTimer::timeout, this, &QtTreeCtrl::Sync);
  connect(this, &QTreeView::expanded, this,
          [this](const QModelIndex& index) { OnToggled(index, true); });
  connect(this, &QTreeView::collapsed, this,
          [this](const QModelIndex& index) { OnToggled(index, false); });
  tree.SetListener(
      {[this] { OnTreeChanging(); }, [this] { OnTreeSelected(); }, [this] { syncTimer.start(); }});
  OnTreeChanging();
}

QtTreeCtrl::~QtTreeCtrl() { tree.SetListener({}); }

QSize QtTreeCtrl::sizeHint() const { return {firstWidth, QTreeView::sizeHint().height()}; }

void QtTreeCtrl::LoadIcons() {
  const QPalette& colours = palette();
  const SvgColours normal =
      SvgColours::On(colours.color(QPalette::Base), colours.color(QPalette::Text));
  const QColor marked = colours.color(QPalette::HighlightedText);
  QList<QIcon> icons;
  for (const std::string& name : tree.Images()) {
    QIcon icon;
    AddSvgPixmaps(icon, FromUtf8(name), kIconSide, normal);
    AddSvgPixmaps(icon, FromUtf8(name), kIconSide, {marked, marked}, QIcon::Selected);
    icons << icon;
  }
  treeModel->SetIcons(icons);
}

void QtTreeCtrl::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    LoadIcons();
    viewport()->update();
  }
  QTreeView::changeEvent(event);
}

void QtTreeCtrl::OnTreeChanging() {
  if (!treeModel->IsOpen()) return;
  scrolledTo = verticalScrollBar()->value();
  const QScopedValueRollback guard(showing, true);
  treeModel->Close();
  syncTimer.start();
}

void QtTreeCtrl::OnTreeSelected() {
  bringSelectedUp = true;
  if (treeModel->IsOpen()) ShowSelected();
}

void QtTreeCtrl::Sync() {
  syncTimer.stop();
  if (!showing) tree.BringUpToDate();
  if (treeModel->IsOpen()) return;
  syncTimer.stop();
  const QScopedValueRollback guard(showing, true);
  treeModel->Open();
  ShowExpanded(tree.FirstItem());
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(scrolledTo);
  ShowSelected();
}

/// Opens what is open below an item and behind it. Only what the user has opened is walked through.
void QtTreeCtrl::ShowExpanded(const TreeItem* item) {
  for (; item != nullptr; item = item->Next()) {
    if (!item->IsExpanded()) continue;
    setExpanded(treeModel->IndexOf(item), true);
    ShowExpanded(item->FirstChild());
  }
}

void QtTreeCtrl::ShowSelected() {
  const QScopedValueRollback guard(showing, true);
  const QModelIndex index = treeModel->IndexOf(tree.Selected());
  // The current item comes into sight by itself, which is not wanted each time that something
  // changes.
  setAutoScroll(false);
  if (index.isValid()) {
    setCurrentIndex(index);
  } else {
    selectionModel()->clear();
  }
  setAutoScroll(true);
  if (std::exchange(bringSelectedUp, false) && index.isValid()) BringUp(index);
}

/// Scrolls so far that the label of an item shows, its beginning before its end.
void QtTreeCtrl::BringUp(const QModelIndex& index) {
  const int sideways = horizontalScrollBar()->value();
  scrollTo(index);
  horizontalScrollBar()->setValue(sideways);
  if (staysLeft) return;
  const QRect label = LabelRect(index);
  const int right = label.right() - viewport()->width() + 1;
  const int left = std::min(label.left(), std::max(right, 0));
  horizontalScrollBar()->setValue(sideways + left);
}

/// A selected item that was in sight stays there, be it that a scroll bar takes its place.
void QtTreeCtrl::resizeEvent(QResizeEvent* event) {
  const QModelIndex index = treeModel->IndexOf(tree.Selected());
  const int height = event->oldSize().height();
  const bool wasInSight = index.isValid() && (height <= 0 || visualRect(index).top() < height);
  QTreeView::resizeEvent(event);
  header()->setMinimumSectionSize(viewport()->width());
  if (wasInSight) BringUp(index);
}

void QtTreeCtrl::OnToggled(const QModelIndex& index, bool expand) {
  if (showing) return;
  // The tree may change all that stands below, for which the view's own work has to be over.
  QMetaObject::invokeMethod(
      this,
      [this, place = QPersistentModelIndex(index), expand] {
        if (!place.isValid()) return;
        TreeItem& item = *QtTreeModel::ItemOf(place);
        expand ? tree.Expand(item) : tree.Collapse(item);
      },
      Qt::QueuedConnection);
}

void QtTreeCtrl::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const QModelIndexList chosen = selected.indexes();
  if (showing || chosen.isEmpty()) return;
  TreeItem* item = QtTreeModel::ItemOf(chosen.first());
  if (item == tree.Selected()) return;
  tree.Select(item);
  tree.OnChosen(*item);
}

void QtTreeCtrl::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier &&
      tree.OnKeyDown(VirtualKey::Delete)) {
    return event->accept();
  }
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && tree.OnReturn()) return event->accept();
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    event->accept();
    return OpenMenu();
  }
  QTreeView::keyPressEvent(event);
}

void QtTreeCtrl::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  // A press of the mouse has opened it already.
  if (event->reason() == QContextMenuEvent::Keyboard) OpenMenu();
}

/// The menu of the selected item, below it.
void QtTreeCtrl::OpenMenu() {
  const QModelIndex index = treeModel->IndexOf(tree.Selected());
  if (!index.isValid()) return;
  scrollTo(index);
  const QPoint screen = viewport()->mapToGlobal(LabelRect(index).bottomLeft());
  tree.OnRButtonDown(tree.Selected(), {screen.x(), screen.y()});
}

void QtTreeCtrl::SyncFor(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::FocusIn:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::HoverMove:
    case QEvent::Wheel:
    case QEvent::ToolTip:
    case QEvent::Paint: Sync(); break;
    default: break;
  }
}

bool QtTreeCtrl::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) staysLeft = false;
  SyncFor(*event);
  return QTreeView::event(event);
}

bool QtTreeCtrl::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) staysLeft = false;
  SyncFor(*event);
  return QTreeView::viewportEvent(event);
}

TreeItem* QtTreeCtrl::HitTest(QPoint p) const {
  const QModelIndex index = indexAt(p);
  if (!index.isValid()) return nullptr;
  return LabelRect(index).contains(p) ? QtTreeModel::ItemOf(index) : nullptr;
}

/// Picture and text of an item, pixels of the viewport.
QRect QtTreeCtrl::LabelRect(const QModelIndex& index) const {
  QRect label = visualRect(index);
  label.setWidth(sizeHintForIndex(index).width());
  return label;
}

/// In the row of an item but behind its text, where nothing can be pressed.
bool QtTreeCtrl::IsBesideLabel(QPoint p) const {
  const QModelIndex index = indexAt(p);
  return index.isValid() && HitTest(p) == nullptr && p.x() >= visualRect(index).left();
}

void QtTreeCtrl::mousePressEvent(QMouseEvent* event) {
  const QPoint p = event->pos();
  if (IsBesideLabel(p)) return;
  TreeItem* hit = HitTest(p);
  const QPointer<QtTreeCtrl> alive(this);
  if (event->button() == Qt::LeftButton) {
    tree.OnLButtonDown(hit);
  } else if (event->button() == Qt::RightButton) {
    const QPoint screen = event->globalPosition().toPoint();
    if (tree.OnRButtonDown(hit, {screen.x(), screen.y()})) return;
  }
  if (alive.isNull()) return;
  Sync();
  QTreeView::mousePressEvent(event);
}

void QtTreeCtrl::mouseMoveEvent(QMouseEvent* event) {
  // A press selects; a pointer that wanders off with the button down selects nothing else.
  if (event->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(event);
}

void QtTreeCtrl::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint p = event->pos();
  if (IsBesideLabel(p)) return;
  const QPointer<QtTreeCtrl> alive(this);
  if (event->button() == Qt::LeftButton && HitTest(p) != nullptr) tree.OnLButtonDblClk();
  if (alive.isNull()) return;
  Sync();
  QTreeView::mouseDoubleClickEvent(event);
}

}  // namespace morvane
