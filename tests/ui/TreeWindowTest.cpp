#include "platform/CTreeCtrl.h"
#include "platform/qt/QtTreeCtrl.h"
#include "tests/support/TreeRows.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

using Log = std::vector<std::string>;

/// Notes what its window reports.
class NotingTree : public CTreeCtrl {
 public:
  NotingTree() : CTreeCtrl({"tree-state"}) {}
  void OnLButtonDown(TreeItem* hit) override { Note("press", hit); }
  bool OnRButtonDown(TreeItem* hit, POINT) override {
    Note("menu", hit);
    return hit != nullptr;
  }
  void OnLButtonDblClk() override { Note("double", Selected()); }
  void OnChosen(TreeItem& item) override { Note("chosen", &item); }
  bool OnKeyDown(VirtualKey) override {
    Note("key at", Selected());
    return true;
  }
  Log log;

 protected:
  void OnExpanded(TreeItem& item) override { Note("open", &item); }
  void OnCollapsed(TreeItem& item) override { Note("close", &item); }

 private:
  void Note(const std::string& what, const TreeItem* item) {
    log.push_back(what + " " + (item != nullptr ? item->Text() : "nothing"));
  }
};

class TreeWindow : public testing::Test {
 protected:
  TreeWindow() : window(tree, 150) {
    window.resize(200, 150);
    for (const char* name : {"one", "two", "three"}) {
      Add(Add(nullptr, name), std::string("in ") + name);
    }
    window.show();
    QApplication::processEvents();
  }

  TreeItem* Add(TreeItem* parent, const std::string& text) {
    return tree.InsertItem(parent, text, 0, 0);
  }
  /// An open item with numbers below it.
  void AddMany(int count) {
    TreeItem* many = Add(nullptr, "many");
    for (int i = 0; i < count; ++i) Add(many, std::to_string(i));
    tree.Expand(*many);
  }
  /// What the window shows, row by row.
  QStringList Shown() const {
    QStringList rows;
    for (QModelIndex index = window.model()->index(0, 0); index.isValid();
         index = window.indexBelow(index)) {
      rows << index.data().toString();
    }
    return rows;
  }
  QRect RowRect(int row) const {
    QModelIndex index = window.model()->index(0, 0);
    for (int i = 0; i < row; ++i) index = window.indexBelow(index);
    return window.visualRect(index);
  }
  Log Click(QPoint p, Qt::MouseButton button = Qt::LeftButton,
            QEvent::Type type = QEvent::MouseButtonPress) {
    SendMouse(*window.viewport(), type, p, button);
    SendMouse(*window.viewport(), QEvent::MouseButtonRelease, p, button);
    QApplication::processEvents();
    return std::exchange(tree.log, {});
  }

  NotingTree tree;
  QtTreeCtrl window;
};

TEST_F(TreeWindow, KeepsItsPlaceWhenTheTreeChanges) {
  AddMany(100);
  tree.Select(FindRow(tree, "50"));
  QApplication::processEvents();
  const QRect place = window.visualRect(window.currentIndex());
  EXPECT_TRUE(window.viewport()->rect().contains(place.center()));
  window.verticalScrollBar()->setValue(20);
  Add(nullptr, "last");
  QApplication::processEvents();
  EXPECT_EQ(window.verticalScrollBar()->value(), 20);
  EXPECT_EQ(window.currentIndex().data().toString(), "50");
  tree.DeleteItem(*tree.Selected());
  QApplication::processEvents();
  EXPECT_FALSE(window.currentIndex().isValid());
}

TEST_F(TreeWindow, ReportsWhatIsPressedAndKeysMoveTheSelection) {
  const QPoint label = RowRect(1).topLeft() + QPoint(20, RowRect(1).height() / 2);
  EXPECT_EQ(Click(label), (Log{"press two", "chosen two"}));
  EXPECT_EQ(tree.Selected()->Text(), "two");
  EXPECT_EQ(Click({190, label.y()}), Log{}) << "beside the label";
  EXPECT_EQ(Click({20, 140}), Log{"press nothing"});
  EXPECT_EQ(Click(label, Qt::RightButton), Log{"menu two"});
  EXPECT_EQ(Click({RowRect(0).left() - 8, RowRect(0).center().y()}),
            (Log{"press nothing", "open one"}));
  EXPECT_EQ(Shown(), (QStringList{"one", "in one", "two", "three"}));
  const QPoint second = label + QPoint(0, RowRect(0).height());
  Click(second);
  EXPECT_EQ(Click(second, Qt::LeftButton, QEvent::MouseButtonDblClick),
            (Log{"double two", "open two"}));
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left}) {
    SendKey(window, key);
    QApplication::processEvents();
  }
  EXPECT_EQ(tree.Selected()->Text(), "two");
  SendKey(window, Qt::Key_Delete);
  SendKey(window, Qt::Key_F10, {}, Qt::ShiftModifier);
  QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
  QCoreApplication::sendEvent(window.viewport(), &menuKey);
  EXPECT_EQ(tree.log, (Log{"chosen one", "chosen in one", "chosen two", "close two", "key at two",
                           "menu two", "menu two"}));
}

}  // namespace

}  // namespace morvane
