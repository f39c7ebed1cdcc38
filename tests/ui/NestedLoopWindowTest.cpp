#include <QDialog>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>

#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtPopupMenus.h"
#include "platform/qt/QtView.h"
#include "tests/support/Places.h"
#include "tests/ui/LivingWindows.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

// What the user does with the main window while a box, a menu or a dialog is on top of a chart.

namespace {

class NestedLoopWindow : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  std::size_t OpenCharts() const { return frame->Manager().Documents().size(); }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    // A key goes through the table of shortcuts before it reaches a widget.
    qApp->notify(frame.get(), &press);
  }
  const QString lift = QString::fromStdString(SourcePath("Examples/Lift/Lift.mrv"));
  const TempFolder folder;
};

TEST_F(NestedLoopWindow, NothingReachesAChartBehindADialog) {
  LayoutMgr& chart = ViewOf(Open(lift.toStdString()));
  chart.OnCommand(ID_EDIT_SELECT_ALL);
  chart.OnCommand(ID_EDIT_CUT);
  const std::string text = chart.ModelText();
  QDialog dialog(frame.get());
  dialog.setModal(true);
  dialog.show();
  // The desktop may leave the keyboard with the window behind.
  QApplication::setActiveWindow(frame.get());
  PressKey(Qt::Key_Z, Qt::ControlModifier);
  PressKey(Qt::Key_N, Qt::ControlModifier);
  EXPECT_FALSE(frame->RunCommand(ID_EDIT_UNDO));
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(lift)});
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(frame.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
  EXPECT_FALSE(frame->close());
  EXPECT_FALSE(frame->ActiveChild()->close());
  EXPECT_EQ(OpenCharts(), 1U);
  EXPECT_EQ(chart.ModelText(), text);
  dialog.close();
  EXPECT_TRUE(frame->RunCommand(ID_EDIT_UNDO));
}

TEST_F(NestedLoopWindow, AMenuClosesBeforeTheMainWindow) {
  const QtPopupMenus menus;
  const UseService<PopupMenus> useMenus(const_cast<QtPopupMenus&>(menus));
  LayoutMgr& chart = ViewOf(Open(lift.toStdString()));
  for (const POINT p :
       {POINT{5, 5}, chart.ToClient(CentreOf(chart.GetModel().Objects().front()->GetBounds()))}) {
    if (OpenCharts() == 0) break;
    QTimer::singleShot(0, frame.get(), [this] {
      ASSERT_NE(qobject_cast<QMenu*>(QApplication::activePopupWidget()), nullptr);
      EXPECT_FALSE(frame->close());
      EXPECT_EQ(OpenCharts(), 1U) << "the menu is still there";
    });
    chart.OnContextMenu(p);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(OpenCharts(), 1U) << "what the menu belongs to is there until it is done";
    while (OpenCharts() != 0) QApplication::processEvents();
  }
  EXPECT_FALSE(frame->isVisible());
}

/// Looks at the window while the box about a damaged chart is on the screen.
class Looking : public QtMessageBoxes {
 public:
  explicit Looking(CMainFrame& frame) : frame(frame) {}
  MessageAnswer Show(const std::string& text, unsigned flags) override {
    ++boxes;
    QTimer::singleShot(0, [this] {
      LetWindowsLive();
      EXPECT_EQ(frame.ActiveChild(), former);
      EXPECT_EQ(frame.isWindowModified(), former != nullptr) << "the mark of the former chart";
      frame.close();
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      box->accept();
    });
    return QtMessageBoxes::Show(text, flags);
  }

  const CChildFrame* former = nullptr;
  int boxes = 0;

 private:
  CMainFrame& frame;
  const UseService<MessageBoxes> use{*this};
};

TEST_F(NestedLoopWindow, ADamagedChartIsOutOfReachWhileItsMessageIsOpen) {
  Looking looking(*frame);
  std::string whole;
  ASSERT_TRUE(ReadWholeFile(lift.toStdString(), whole).Ok());
  for (const bool besides : {false, true}) {
    LayoutMgr* other = besides ? &ViewOf(Open(lift.toStdString())) : nullptr;
    if (besides) {
      other->OnCommand(ID_EDIT_SELECT_ALL);
      other->OnCommand(ID_EDIT_CUT);
    }
    const std::string text = besides ? other->ModelText() : "";
    looking.former = frame->ActiveChild();
    for (const std::size_t percent : {30U, 60U, 95U}) {
      const std::string path =
          folder.Write("cut.mrv", whole.substr(0, whole.size() * percent / 100));
      EXPECT_EQ(frame->Manager().OpenDocumentFile(path), nullptr);
      EXPECT_EQ(OpenCharts(), besides ? 1U : 0U);
    }
    EXPECT_EQ(besides ? other->ModelText() : "", text);
  }
  EXPECT_EQ(looking.boxes, 6);
}

}  // namespace

}  // namespace morvane
