#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/CommandMenu.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/WindowTest.h"

namespace {

/// A shown main window over fake charts, with a profile of its own.
class MainFrameTest : public testing::Test {
 protected:
  MainFrameTest() {
    frame = std::make_unique<CMainFrame>(CMainFrame::Factories{
        [] { return std::make_unique<FakeDocument>(); },
        [] { return std::make_unique<FakeView>(); },
    });
    frame->show();
    QApplication::setActiveWindow(frame.get());
    QApplication::processEvents();
  }
  ~MainFrameTest() override {
    frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  FakeDocument& Open(const std::string& path) {
    auto* document = dynamic_cast<FakeDocument*>(frame->Manager().OpenDocumentFile(path));
    QApplication::processEvents();
    return *document;
  }
  FakeView& ViewOf(CDocument& document) { return dynamic_cast<FakeView&>(*document.GetView()); }
  std::size_t OpenCharts() { return frame->Manager().Documents().size(); }
  qsizetype Windows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return frame->Area().subWindowList().size();
  }

  /// The entries of the present menu by command.
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
  QStringList Titles() {
    QStringList titles;
    for (QAction* popup : frame->menuBar()->actions()) titles << popup->text();
    return titles;
  }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* const focus = QApplication::focusWidget();
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    // A key goes through the table of shortcuts before it reaches a widget.
    qApp->notify(focus != nullptr ? focus : frame.get(), &press);
  }

  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  std::unique_ptr<CMainFrame> frame;
};

}  // namespace

TEST_F(MainFrameTest, MenusFollowTheCharts) {
  EXPECT_EQ(Titles(), (QStringList{"&File", "&Edit", "&View", "&Help"}));
  EXPECT_EQ(frame->windowTitle(), "Morvane");
  CDocument& document = Open("/x/One.mrv");
  EXPECT_EQ(Titles(),
            (QStringList{"&File", "&Edit", "Insert", "&View", "&CodeGen", "&Window", "&Help"}));
  EXPECT_EQ(frame->windowTitle(), "One.mrv - Morvane");
  document.SetTitle("Two");
  EXPECT_EQ(frame->windowTitle(), "Two - Morvane");
  frame->RunCommand(ID_FILE_CLOSE);
  EXPECT_EQ(Titles(), (QStringList{"&File", "&Edit", "&View", "&Help"}));
  EXPECT_EQ(frame->windowTitle(), "Morvane");
}

TEST_F(MainFrameTest, EntriesAndKeysFollowTheirCommands) {
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
  PressKey(Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(view.commands, (std::vector<unsigned>{ID_ZOOM_OUT, ID_REFRESH, ID_EDIT_UNDO}));
}

TEST_F(MainFrameTest, ButtonsFollowTheState) {
  CDocument& document = Open("/x/One.mrv");
  QAction* zoomIn = nullptr;
  for (QAction* action : frame->findChild<QToolBar*>("toolBar")->actions()) {
    if (action->data().toUInt() == ID_ZOOM_IN) zoomIn = action;
  }
  ASSERT_NE(zoomIn, nullptr);
  ViewOf(document).disabled = {ID_ZOOM_IN};
  while (zoomIn->isEnabled()) {
    QCoreApplication::postEvent(frame.get(), new QEvent(QEvent::User));
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

TEST_F(MainFrameTest, BarsAreShownAndHidden) {
  for (const auto& [id, bar] : std::initializer_list<std::pair<unsigned, QWidget*>>{
           {ID_VIEW_TOOLBAR, frame->findChild<QToolBar*>("toolBar")},
           {ID_DRAWING_BAR, frame->findChild<QToolBar*>("drawingBar")},
           {ID_VIEW_STATUS_BAR, frame->statusBar()}}) {
    EXPECT_TRUE(Entry(id)->isChecked());
    frame->RunCommand(id);
    EXPECT_TRUE(bar->isHidden());
    EXPECT_FALSE(Entry(id)->isChecked());
    frame->RunCommand(id);
    EXPECT_FALSE(bar->isHidden());
  }
}

TEST_F(MainFrameTest, PromptShowsInTheStatusBar) {
  QStatusTipEvent tip(Entry(ID_FILE_OPEN)->statusTip());
  QApplication::sendEvent(frame.get(), &tip);
  EXPECT_EQ(frame->statusBar()->currentMessage(), "Open an existing chart");
}

TEST_F(MainFrameTest, FailedOpenLeavesNoWindow) {
  Open("/x/One.mrv");
  EXPECT_EQ(frame->Manager().OpenDocumentFile("/x/bad.mrv"), nullptr);
  EXPECT_EQ(Windows(), 1);
  EXPECT_EQ(OpenCharts(), 1U);
  EXPECT_EQ(frame->windowTitle(), "One.mrv - Morvane");
}

TEST_F(MainFrameTest, OpenChartIsBroughtForward) {
  CDocument& one = Open("/x/One.mrv");
  Open("/x/Two.mrv");
  EXPECT_EQ(&Open("/x/One.mrv"), &one);
  EXPECT_EQ(Windows(), 2);
  EXPECT_EQ(frame->ActiveChild()->Document(), &one);
  EXPECT_EQ(frame->windowTitle(), "One.mrv - Morvane");
}

TEST_F(MainFrameTest, NewWindowsAreMaximisedLikeTheActiveOne) {
  Open("/x/One.mrv");
  EXPECT_TRUE(frame->ActiveChild()->isMaximized());
  Open("/x/Two.mrv");
  EXPECT_TRUE(frame->ActiveChild()->isMaximized());
  frame->RunCommand(ID_WINDOW_CASCADE);
  EXPECT_FALSE(frame->ActiveChild()->isMaximized());
  EXPECT_EQ(frame->ActiveChild()->windowTitle(), "Two.mrv");
  EXPECT_EQ(frame->windowTitle(), "Two.mrv - Morvane");
  Open("/x/Three.mrv");
  EXPECT_FALSE(frame->ActiveChild()->isMaximized());
}

TEST_F(MainFrameTest, RecentFilesAreInTheMenuAndOpen) {
  Open("/x/One.mrv");
  Open("/x/Two & Three.mrv");
  EXPECT_EQ(Entry(ID_FILE_RECENT)->text(), "&1 /x/Two && Three.mrv");
  EXPECT_EQ(Entry(ID_FILE_RECENT + 1)->text(), "&2 /x/One.mrv");
  EXPECT_EQ(Entry(ID_FILE_RECENT + 2), nullptr);
  Entry(ID_FILE_RECENT + 1)->trigger();
  EXPECT_EQ(frame->windowTitle(), "One.mrv - Morvane");
}

TEST_F(MainFrameTest, ClosingAChartAsks) {
  CDocument& document = Open("/x/One.mrv");
  document.SetModifiedFlag(true);
  boxes.Expect("One.mrv", MessageAnswer::Cancel);
  frame->ActiveChild()->close();
  EXPECT_EQ(OpenCharts(), 1U);
  EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_YESNOCANCEL | MB_ICONEXCLAMATION));
  boxes.Expect("One.mrv", MessageAnswer::No);
  frame->RunCommand(ID_FILE_CLOSE);
  EXPECT_EQ(OpenCharts(), 0U);
  EXPECT_EQ(Windows(), 0);
}

TEST_F(MainFrameTest, ClosingTheProgramAsksForEachChartAndCancelKeepsAll) {
  for (const char* path : {"/x/One.mrv", "/x/Two.mrv", "/x/Three.mrv"}) Open(path);
  frame->Manager().Documents()[0]->SetModifiedFlag(true);
  frame->Manager().Documents()[2]->SetModifiedFlag(true);
  boxes.Expect("One.mrv", MessageAnswer::No);
  boxes.Expect("Three.mrv", MessageAnswer::Cancel);
  EXPECT_FALSE(frame->close());
  EXPECT_EQ(OpenCharts(), 3U);
  boxes.Expect("One.mrv", MessageAnswer::No);
  boxes.Expect("Three.mrv", MessageAnswer::Yes);
  EXPECT_TRUE(frame->close());
  EXPECT_EQ(OpenCharts(), 0U);
}

TEST_F(MainFrameTest, SavingANewChartAsksForItsPlace) {
  frame->RunCommand(ID_FILE_NEW);
  EXPECT_EQ(frame->windowTitle(), "Morvane_Diagram1 - Morvane");
  dialogs.ExpectSave("/x/Saved.mrv");
  frame->RunCommand(ID_FILE_SAVE);
  EXPECT_EQ(frame->windowTitle(), "Saved.mrv - Morvane");
}

TEST_F(MainFrameTest, GestureEndsBeforeItsChartCloses) {
  CDocument& document = Open("/x/One.mrv");
  FakeView& view = ViewOf(document);
  Message::Kind kind = Message::Kind::Other;
  bool ranDuringGesture = true;
  view.onPress = [&] {
    do {
      kind = view.NextMessage().kind;
    } while (kind != Message::Kind::Quit);
    EXPECT_EQ(OpenCharts(), 1U);
  };
  QTimer::singleShot(0, frame.get(), [&] {
    ranDuringGesture = frame->RunCommand(ID_EDIT_UNDO) || frame->RunCommand(ID_FILE_CLOSE);
    frame->ActiveChild()->close();
  });
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(frame->ActiveChild()->Window()->viewport(), &press);
  EXPECT_EQ(kind, Message::Kind::Quit);
  EXPECT_FALSE(ranDuringGesture);
  QApplication::processEvents();
  EXPECT_EQ(OpenCharts(), 0U);
}

TEST_F(MainFrameTest, DroppedFilesOpen) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/x/One.mrv"), QUrl("https://example.org/no.mrv"),
                 QUrl::fromLocalFile("/x/Two.mrv")});
  QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(frame.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(frame.get(), &drop);
  EXPECT_EQ(OpenCharts(), 2U);
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
  frame->RunCommand(ID_OBJECT_BROWSER);
  frame->RunCommand(ID_CHART_BROWSER);
  frame->RunCommand(ID_NEXT_PANE);
  EXPECT_TRUE(child.Window()->hasFocus()) << "it is the only pane";
}
