#include "platform/CTreeCtrl.h"
#include "platform/qt/QtTreeCtrl.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "tests/support/TreeRows.h"
#include "tests/ui/WindowTest.h"

namespace {

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
  std::vector<std::string> log;

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
      TreeItem* item = Add(nullptr, name);
      Add(item, std::string("in ") + name);
    }
    window.show();
    QApplication::processEvents();
  }

  TreeItem* Add(TreeItem* parent, const std::string& text) {
    return tree.InsertItem(parent, text, 0, 0);
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
  void Mouse(QEvent::Type type, QPoint p, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent event(type, p, window.viewport()->mapToGlobal(p), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(window.viewport(), &event);
    QMouseEvent release(QEvent::MouseButtonRelease, p, window.viewport()->mapToGlobal(p), button,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.viewport(), &release);
    QApplication::processEvents();
  }
  void Press(QPoint p, Qt::MouseButton button = Qt::LeftButton) {
    Mouse(QEvent::MouseButtonPress, p, button);
  }
  std::vector<std::string> TakeLog() { return std::exchange(tree.log, {}); }

  NotingTree tree;
  QtTreeCtrl window;
};

using Log = std::vector<std::string>;

TEST_F(TreeWindow, LooksOnceAtManyChanges) {
  int looks = 0;
  QObject::connect(window.model(), &QAbstractItemModel::modelReset, [&] { ++looks; });
  TreeItem* many = Add(nullptr, "many");
  for (int i = 0; i < 1000; ++i) Add(many, std::to_string(i));
  tree.Expand(*many);
  tree.DeleteItem(*FindRow(tree, "two"));
  tree.SetText(*FindRow(tree, "one"), "a\nb");
  QApplication::processEvents();
  EXPECT_EQ(looks, 1);
  EXPECT_EQ(Shown().mid(0, 5), (QStringList{"a b", "three", "many", "0", "1"}));
  EXPECT_EQ(Shown().size(), 1003);
}

TEST_F(TreeWindow, KeepsItsPlaceWhenTheTreeChanges) {
  TreeItem* many = Add(nullptr, "many");
  for (int i = 0; i < 100; ++i) Add(many, std::to_string(i));
  tree.Expand(*many);
  tree.Select(FindRow(tree, "50"));
  QApplication::processEvents();
  EXPECT_EQ(window.currentIndex().data().toString(), "50");
  const QRect place = window.visualRect(window.currentIndex());
  EXPECT_TRUE(window.viewport()->rect().contains(place.center()));
  window.verticalScrollBar()->setValue(20);
  Add(nullptr, "last");
  QApplication::processEvents();
  EXPECT_EQ(window.verticalScrollBar()->value(), 20);
  EXPECT_EQ(window.currentIndex().data().toString(), "50");
  EXPECT_EQ(tree.Selected()->Text(), "50");
  tree.DeleteItem(*tree.Selected());
  QApplication::processEvents();
  EXPECT_FALSE(window.currentIndex().isValid());
}

TEST_F(TreeWindow, ReportsWhatIsPressed) {
  const QPoint label = RowRect(1).topLeft() + QPoint(20, RowRect(1).height() / 2);
  const QPoint beside(190, label.y());
  const QPoint below(20, 140);
  Press(label);
  EXPECT_EQ(TakeLog(), Log{"press two"});
  EXPECT_EQ(tree.Selected()->Text(), "two");
  Press(beside);
  EXPECT_EQ(TakeLog(), Log{});
  Press(below);
  EXPECT_EQ(TakeLog(), Log{"press nothing"});
  Press(label, Qt::RightButton);
  EXPECT_EQ(TakeLog(), Log{"menu two"});
  Press(QPoint(RowRect(0).left() - 8, RowRect(0).center().y()));
  EXPECT_EQ(TakeLog(), (Log{"press nothing", "open one"}));
  EXPECT_EQ(Shown(), (QStringList{"one", "in one", "two", "three"}));
  const QPoint second = label + QPoint(0, RowRect(0).height());
  Press(second);
  Mouse(QEvent::MouseButtonDblClick, second);
  EXPECT_EQ(TakeLog(), (Log{"press two", "double two", "open two"}));
}

TEST_F(TreeWindow, KeysMoveTheSelection) {
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Right, Qt::Key_Left}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &press);
    QApplication::processEvents();
  }
  EXPECT_EQ(tree.Selected()->Text(), "two");
  EXPECT_EQ(TakeLog(), (Log{"open two", "close two"}));
}

/// The panes in a main window over real charts.
class BrowserPanes : public testing::Test {
 protected:
  BrowserPanes() {
    profile.WriteString("ToolBars", "BrowseDir", folder.Root().string());
    Start();
  }
  void Start() {
    frame = std::make_unique<CMainFrame>(
        CMainFrame::Factories{[] { return std::make_unique<CMorvaneDoc>(); },
                              [] { return std::make_unique<LayoutMgr>(); }});
    frame->show();
    QApplication::processEvents();
  }
  CDirTreeCtrl& Folders() { return frame->findChild<ChartBrowserPane*>()->Tree(); }
  std::string SelectedPath() { return Folders().PathOfItem(*Folders().Selected()); }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  ScriptedMessageBoxes boxes;
  std::unique_ptr<CMainFrame> frame;
};

TEST_F(BrowserPanes, AreShownAndHidden) {
  frame->Manager().NewDocument();
  CChildFrame* first = frame->ActiveChild();
  frame->Manager().NewDocument();
  QWidget* second = &frame->ActiveChild()->ObjectBrowser();
  frame->RunCommand(ID_OBJECT_BROWSER);
  EXPECT_TRUE(second->isHidden());
  EXPECT_FALSE(first->ObjectBrowser().isHidden());
  EXPECT_FALSE(frame->StateOf(ID_OBJECT_BROWSER).checked);
  frame->RunCommand(ID_OBJECT_BROWSER);
  EXPECT_TRUE(frame->StateOf(ID_OBJECT_BROWSER).checked);
  frame->RunCommand(ID_CHART_BROWSER);
  EXPECT_TRUE(frame->findChild<ChartBrowserPane*>()->isHidden());
  EXPECT_FALSE(frame->StateOf(ID_CHART_BROWSER).checked);
  EXPECT_EQ(second->width(), 150);
}

TEST_F(BrowserPanes, FollowTheChartOfTheirWindow) {
  frame->Manager().NewDocument();
  auto& chart = dynamic_cast<LayoutMgr&>(*frame->ActiveChild()->View());
  POINT place{50, 50};
  chart.GetModel().InsertInitialState(place);
  QApplication::processEvents();
  const QAbstractItemModel& shown = *frame->ActiveChild()->ObjectBrowser().Window().model();
  EXPECT_EQ(shown.index(0, 0, shown.index(0, 0)).data().toString(), "InitialState");
  boxes.Expect("", MessageAnswer::No);
  EXPECT_TRUE(frame->close());
}

TEST_F(BrowserPanes, ChartBrowserOpensChartsAndComesBackToItsFolder) {
  EXPECT_EQ(SelectedPath(), folder.Root().string());
  std::filesystem::create_directory(folder.Path("charts"));
  std::filesystem::copy(MORVANE_SOURCE_DIR "/Examples/Lift/Lift.mrv", folder.Path("charts"));
  Folders().SelectPath(folder.Path("charts"));
  Folders().Select(Folders().Selected()->FirstChild());
  Folders().OnLButtonDblClk();
  EXPECT_EQ(frame->windowTitle(), "Lift.mrv - Morvane");
  Folders().Select(Folders().Selected()->Parent());
  EXPECT_TRUE(frame->close());
  frame.reset();
  Start();
  EXPECT_EQ(SelectedPath(), folder.Path("charts"));
}

}  // namespace
