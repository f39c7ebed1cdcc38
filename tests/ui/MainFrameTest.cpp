#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QStatusBar>

#include "platform/FileSystem.h"
#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "shell/qt/CommandMenu.h"
#include "shell/qt/FrameState.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

class MainFrameTest : public MainWindow<FakeDocument, FakeView> {
 protected:
  std::size_t OpenCharts() { return frame->Manager().Documents().size(); }
  qsizetype Windows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return frame->Area().subWindowList().size();
  }
  /// The entry of the present menus for a command.
  QAction* Entry(unsigned id) {
    for (QAction* popup : frame->menuBar()->actions()) {
      auto* menu = dynamic_cast<CommandMenu*>(popup->menu());
      menu->Refresh();
      for (QAction* action : menu->actions()) {
        if (action->data().toUInt() == id) return action;
      }
    }
    return nullptr;
  }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* const focus = QApplication::focusWidget();
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    // A key goes through the table of shortcuts before it reaches a widget.
    qApp->notify(focus != nullptr ? focus : frame.get(), &press);
  }
  std::string Status() const {
    return frame->statusBar()->findChild<QLabel*>()->text().toStdString();
  }
  /// The entries of the menu "Window" for charts.
  std::vector<std::string> WindowList() {
    QMenu& menu = *frame->menuBar()->actions()[6]->menu();
    emit menu.aboutToShow();
    std::vector<std::string> entries;
    for (const QAction* action : menu.actions()) {
      if (action->data().toUInt() == 0 && !action->isSeparator()) {
        entries.push_back(action->text().toStdString());
      }
    }
    return entries;
  }
};

TEST_F(MainFrameTest, EntriesKeysAndButtonsFollowTheirCommands) {
  EXPECT_FALSE(Entry(ID_FILE_RECENT)->isEnabled());
  FakeView& view = ViewOf(Open("/x/One.mrv"));
  for (const unsigned id : {ID_FILE_RECENT, ID_WINDOW_TILE, ID_ZOOM_IN}) {
    EXPECT_TRUE(Entry(id)->isEnabled()) << id;
  }
  view.disabled = {ID_ZOOM_IN};
  EXPECT_FALSE(Entry(ID_ZOOM_IN)->isEnabled());
  Entry(ID_ZOOM_OUT)->trigger();
  PressKey(Qt::Key_F2, Qt::NoModifier);  // of the disabled command
  PressKey(Qt::Key_F5, Qt::NoModifier);
  PressKey(Qt::Key_Backspace, Qt::AltModifier);
  PressKey(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(view.commands,
            (std::vector<unsigned>{ID_ZOOM_OUT, ID_REFRESH, ID_EDIT_UNDO, ID_ZOOM_OUT}));
  view.asked = 0;
  EXPECT_TRUE(frame->RunCommand(ID_REFRESH));
  EXPECT_FALSE(frame->RunCommand(ID_ZOOM_IN));
  EXPECT_EQ(view.asked, 2) << "each command is asked for its state once";
  const auto buttons = frame->findChild<QToolBar*>("toolBar")->actions();
  const auto zoomIn = std::find_if(buttons.begin(), buttons.end(), [](const QAction* action) {
    return action->data().toUInt() == ID_ZOOM_IN;
  });
  ASSERT_NE(zoomIn, buttons.end());
  // Buttons follow when the program has nothing to do, until something happens again.
  RunUntil([&] { return !(*zoomIn)->isEnabled(); });
}

TEST_F(MainFrameTest, AnOpenChartComesForwardAndAFailedOneLeavesNoWindow) {
  CDocument& one = Open("/x/One.mrv");
  const std::string two = AbsolutePath("/x/Two & Three.mrv");
  Open(two);
  EXPECT_EQ(Entry(ID_FILE_RECENT)->text().toStdString(),
            "&1 " + QString::fromStdString(two).replace("&", "&&").toStdString());
  EXPECT_EQ(Entry(ID_FILE_RECENT + 2), nullptr);
  EXPECT_EQ(frame->Manager().OpenDocumentFile("/x/bad.mrv"), nullptr);
  EXPECT_EQ(Windows(), 2);
  EXPECT_EQ(OpenCharts(), 2U);
  EXPECT_EQ(&Open("/x/One.mrv"), &one);
  EXPECT_EQ(Windows(), 2);
  EXPECT_EQ(frame->ActiveChild()->Document(), &one);
  Entry(ID_FILE_RECENT)->trigger();
  EXPECT_EQ(Title(), "Two & Three.mrv - Morvane");
}

TEST_F(MainFrameTest, UnsavedChartsAreMarkedInTitlesAndInTheWindowList) {
  FakeDocument& one = Open("/x/One.mrv");
  FakeDocument& odd = Open("/x/A[*] & [*][*]b.mrv");
  EXPECT_EQ(Title(), "A[*] & [*][*]b.mrv - Morvane");
  EXPECT_EQ(WindowList(), (std::vector<std::string>{"&1 One.mrv", "&2 A[*] && [*][*]b.mrv"}));
  one.Show(true);
  EXPECT_EQ(Title(), "A[*] & [*][*]b.mrv - Morvane") << "another chart has changed";
  odd.Show(true);
  EXPECT_EQ(Title(), "A[*] & [*][*]b.mrv* - Morvane");
  EXPECT_EQ(WindowList(), (std::vector<std::string>{"&1 One.mrv*", "&2 A[*] && [*][*]b.mrv*"}));
  EXPECT_EQ(frame->ActiveChild()->windowTitle(), "") << "the main window has it";
  frame->RunCommand(ID_WINDOW_CASCADE);
  for (const bool marked : {true, false}) {
    odd.Show(marked);
    EXPECT_EQ(frame->ActiveChild()->windowTitle(), u"A[\u2060*] & [\u2060*][\u2060*]b.mrv[*]");
    EXPECT_EQ(frame->ActiveChild()->isWindowModified(), marked);
    EXPECT_EQ(frame->isWindowModified(), marked);
  }
  frame->ActiveChild()->showMaximized();
  EXPECT_EQ(Title(), "A[*] & [*][*]b.mrv - Morvane");
  frame->Manager().OpenDocumentFile("/x/One.mrv");
  EXPECT_EQ(Title(), "One.mrv* - Morvane");
  frame->RunCommand(ID_FILE_CLOSE);
  frame->RunCommand(ID_FILE_CLOSE);
  EXPECT_EQ(Title(), "Morvane");
}

TEST_F(MainFrameTest, TheStatusLineSpeaksForTheActiveChart) {
  EXPECT_EQ(Status(), "Ready");
  FakeDocument& one = Open("/x/One.mrv");
  one.Show(false, "this <b>file</b> is empty");
  EXPECT_EQ(Status(), "this <b>file</b> is empty");
  Open("/x/Two.mrv");
  EXPECT_EQ(Status(), "Ready");
  Open("/x/One.mrv");
  EXPECT_EQ(Status(), "this <b>file</b> is empty");
  one.Show(false);
  EXPECT_EQ(Status(), "Ready");
}

TEST_F(MainFrameTest, ClosingAsksForEachModifiedChartAndCancelKeepsAll) {
  for (const char* path : {"/x/One.mrv", "/x/Two.mrv", "/x/Three.mrv"}) Open(path);
  for (const std::size_t index : {0U, 2U}) {
    frame->Manager().Documents()[index]->SetModifiedFlag(true);
  }
  boxes.Expect("Three.mrv", MessageAnswer::Cancel);
  frame->ActiveChild()->close();
  EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_YESNOCANCEL | MB_ICONEXCLAMATION));
  boxes.Expect("One.mrv", MessageAnswer::No);
  boxes.Expect("Three.mrv", MessageAnswer::Cancel);
  EXPECT_FALSE(frame->close());
  boxes.Expect("One.mrv", MessageAnswer::Cancel);
  frame->RunCommand(ID_CLOSE_ALL);
  EXPECT_EQ(OpenCharts(), 3U);
  boxes.Expect("Three.mrv", MessageAnswer::No);
  frame->RunCommand(ID_FILE_CLOSE);
  EXPECT_EQ(Windows(), 2);
  boxes.Expect("One.mrv", MessageAnswer::Yes);
  frame->RunCommand(ID_CLOSE_ALL);
  EXPECT_EQ(OpenCharts(), 0U);
  EXPECT_EQ(Windows(), 0);
  EXPECT_TRUE(frame->close());
}

TEST_F(MainFrameTest, GestureEndsBeforeItsChartCloses) {
  FakeView& view = ViewOf(Open("/x/One.mrv"));
  Message::Kind kind = Message::Kind::Other;
  bool ranDuringGesture = true;
  view.onPress = [&] {
    do {
      kind = view.NextMessage().kind;
    } while (kind != Message::Kind::Quit);
    EXPECT_EQ(OpenCharts(), 1U);
  };
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/x/Late.mrv")});
  QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QTimer::singleShot(0, frame.get(), [&] {
    ranDuringGesture = frame->RunCommand(ID_EDIT_UNDO) || frame->RunCommand(ID_FILE_CLOSE);
    QCoreApplication::sendEvent(frame.get(), &drop);
    frame->ActiveChild()->close();
  });
  SendMouse(*frame->ActiveChild()->Window()->viewport(), QEvent::MouseButtonPress, {5, 5});
  EXPECT_EQ(kind, Message::Kind::Quit);
  EXPECT_FALSE(ranDuringGesture);
  QApplication::processEvents();
  EXPECT_EQ(OpenCharts(), 0U);
}

TEST_F(MainFrameTest, DroppedFilesOpen) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/x/One.mrv"), QUrl("https://example.org/no.mrv"),
                 QUrl::fromLocalFile("/x/Two.mrv")});
  // With Shift a file manager proposes to move them.
  const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter({50, 50}, offered, &files, Qt::LeftButton, Qt::ShiftModifier);
  QDropEvent drop({50, 50}, offered, &files, Qt::LeftButton, Qt::ShiftModifier);
  for (QDropEvent* event : {static_cast<QDropEvent*>(&enter), &drop}) {
    ASSERT_EQ(event->proposedAction(), Qt::MoveAction);
    QCoreApplication::sendEvent(frame.get(), event);
    EXPECT_TRUE(event->isAccepted());
    EXPECT_EQ(event->dropAction(), Qt::CopyAction);
  }
  QApplication::processEvents();
  EXPECT_EQ(OpenCharts(), 2U);
}

TEST_F(MainFrameTest, ACascadeShowsEachTitleWhateverLiesInFront) {
  QList<QMdiSubWindow*> windows;
  for (const int count : {3, 20}) {
    while (OpenCharts() < static_cast<std::size_t>(count)) Open(std::to_string(OpenCharts()));
    windows = frame->Area().subWindowList();
    frame->Area().setActiveSubWindow(windows[1]);
    frame->RunCommand(ID_WINDOW_CASCADE);
    QApplication::processEvents();
    for (const QMdiSubWindow* window : windows) {
      constexpr int letters = 40;
      const QPoint title = window->pos() + QPoint(letters, 8);
      EXPECT_EQ(frame->Area().viewport()->childAt(title), window) << count;
      EXPECT_TRUE(frame->Area().viewport()->rect().contains(window->geometry())) << count;
    }
  }
}

TEST_F(MainFrameTest, TheKeyboardGoesFromPaneToPane) {
  EXPECT_FALSE(frame->StateOf(ID_NEXT_PANE).enabled);
  Open("one.mrv");
  CChildFrame& child = *frame->ActiveChild();
  child.Window()->setFocus();
  frame->RunCommand(ID_NEXT_PANE);
  EXPECT_TRUE(child.ObjectBrowser().Window().hasFocus());
  frame->RunCommand(ID_PREV_PANE);
  EXPECT_TRUE(child.Window()->hasFocus());
  for (const unsigned id : {ID_OBJECT_BROWSER, ID_CHART_BROWSER, ID_NEXT_PANE}) {
    frame->RunCommand(id);
  }
  EXPECT_TRUE(child.Window()->hasFocus()) << "it is the only pane";
}

TEST_F(MainFrameTest, BarsAreShownAndHiddenAndLastWithThePlacement) {
  constexpr QRect placement(60, 50, 900, 620);
  const struct {
    unsigned id;
    QWidget* bar;
    bool hideAtLast;
  } bars[] = {{ID_VIEW_TOOLBAR, frame->findChild<QToolBar*>("toolBar"), false},
              {ID_DRAWING_BAR, frame->findChild<QToolBar*>("drawingBar"), true},
              {ID_VIEW_STATUS_BAR, frame->statusBar(), false},
              {ID_CHART_BROWSER, frame->findChild<QDockWidget*>(), true}};
  for (const auto& [id, bar, hideAtLast] : bars) {
    for (const bool hidden : {true, false}) {
      EXPECT_EQ(Entry(id)->isChecked(), hidden);
      frame->RunCommand(id);
      EXPECT_EQ(bar->isHidden(), hidden) << id;
    }
    if (hideAtLast) frame->RunCommand(id);
  }
  frame->setGeometry(placement);
  QApplication::processEvents();
  frame->close();
  frame = MakeFrame();
  ASSERT_TRUE(FrameState::Restore(*frame));
  EXPECT_TRUE(frame->isVisible());
  EXPECT_EQ(frame->size(), placement.size());
  for (const auto& bar : bars) EXPECT_EQ(IsChecked(bar.id), !bar.hideAtLast) << bar.id;
}

TEST_F(MainFrameTest, ADamagedPlacementIsNone) {
  for (const char* damaged : {"", "not base64 at all %%%", "AAAA", "QUJDREVGR0g="}) {
    profile.Write("Frame", {{"Placement", damaged}, {"Bars", damaged}});
    frame = MakeFrame();
    EXPECT_FALSE(FrameState::Restore(*frame)) << damaged;
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(IsChecked(ID_DRAWING_BAR));
  }
}

}  // namespace

}  // namespace morvane
