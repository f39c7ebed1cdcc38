#include <QScrollBar>
#include <QStyleOptionDockWidget>

#include "connectors/NewObjects.h"
#include "platform/DragImages.h"
#include "platform/UseService.h"
#include "platform/qt/QtTreeCtrl.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/DockTitle.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "surface/ToolDrag.h"
#include "tests/support/Places.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

/// The main window over real charts.
class ChartWindows : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  ChartBrowserPane& Browser() { return *frame->findChild<ChartBrowserPane*>(); }
  CDirTreeCtrl& Folders() { return Browser().Tree(); }
  std::string SelectedPath() { return Folders().PathOfItem(*Folders().Selected()); }
};

/// A picture of a tool that shows, or not.
struct ShownTool : DragImages {
  void Show(unsigned command, POINT /*topLeft*/) override { shown = command; }
  void Hide() override { shown = 0; }
  unsigned shown = 0;
  const UseService<DragImages> use{*this};
};

TEST_F(ChartWindows, AToolOfTheBarIsClickedAndServesOneChart) {
  ShownTool picture;
  LayoutMgr& first = ViewOf(Open());
  auto* bar = frame->findChild<QToolBar*>("drawingBar");
  QWidget* button = nullptr;
  for (QAction* action : bar->actions()) {
    if (action->data().toUInt() == ID_TOOL_TRANSITION) button = bar->widgetForAction(action);
  }
  const auto click = [&](QEvent::Type press) {
    SendMouse(*button, press, {5, 5});
    SendMouse(*button, QEvent::MouseButtonRelease, {6, 5});
    return IsChecked(ID_TOOL_TRANSITION);
  };
  EXPECT_TRUE(click(QEvent::MouseButtonPress));
  EXPECT_FALSE(click(QEvent::MouseButtonPress));
  EXPECT_TRUE(click(QEvent::MouseButtonPress));
  EXPECT_TRUE(click(QEvent::MouseButtonDblClick) && click(QEvent::MouseButtonDblClick));
  first.OnMouseMove(0, {50, 50});
  EXPECT_EQ(picture.shown, ID_TOOL_TRANSITION);
  for (int count = 1; count <= 2; ++count) {
    first.OnLButtonUp(0, {50, 50});
    EXPECT_EQ(first.GetModel().Objects().size(), static_cast<std::size_t>(count));
    EXPECT_EQ(first.GetTools().Tool(), ID_TOOL_TRANSITION);
  }

  LayoutMgr& second = ViewOf(Open());
  EXPECT_EQ(first.GetTools().Tool() + second.GetTools().Tool() + picture.shown, 0U);
  SendMouse(*button, QEvent::MouseButtonPress, {5, 5});
  SendMouse(*button, QEvent::MouseMove, {5, 45});
  EXPECT_TRUE(second.HasCapture());
  second.OnMouseMove(MK_LBUTTON, {60, 60});
  EXPECT_EQ(picture.shown, ID_TOOL_TRANSITION);
  frame->Manager().CloseAllDocuments();
  EXPECT_EQ(picture.shown, 0U);
}

TEST_F(ChartWindows, EachHasAnObjectBrowserOfItsChart) {
  Open();
  QWidget& first = frame->ActiveChild()->ObjectBrowser();
  POINT place{50, 50};
  InsertInitialState(ViewOf(Open()).GetModel(), place);
  QApplication::processEvents();
  ObjectBrowserPane& second = frame->ActiveChild()->ObjectBrowser();
  const QAbstractItemModel& shown = *second.Window().model();
  EXPECT_EQ(shown.index(0, 0, shown.index(0, 0)).data().toString(), "InitialState");
  EXPECT_EQ(second.width(), 150);
  for (const bool hidden : {true, false}) {
    frame->RunCommand(ID_OBJECT_BROWSER);
    EXPECT_EQ(second.isHidden(), hidden);
    EXPECT_FALSE(first.isHidden());
    EXPECT_EQ(IsChecked(ID_OBJECT_BROWSER), !hidden);
  }
}

TEST_F(ChartWindows, TheChartBrowserOpensChartsAndComesBackToItsFolder) {
  const TempFolder folder;
  profile.WriteString("ToolBars", "BrowseDir", folder.Root().string());
  Start();
  EXPECT_EQ(SelectedPath(), folder.Root().string());
  std::filesystem::create_directory(folder.Path("charts"));
  std::filesystem::copy(SourcePath("Examples/Lift/Lift.mrv"), folder.Path("charts"));
  Folders().SelectPath(folder.Path("charts"));
  Folders().Select(Folders().Selected()->FirstChild());
  SendKey(Browser().Window(), Qt::Key_Return);
  EXPECT_EQ(Title(), "Lift.mrv - Morvane");
  Folders().Select(Folders().Selected()->Parent());
  EXPECT_TRUE(frame->close());
  Start();
  EXPECT_EQ(SelectedPath(), folder.Path("charts"));
  const QScrollBar& sideways = *Browser().Window().horizontalScrollBar();
  Browser().Window().setFixedWidth(60);
  QApplication::processEvents();
  EXPECT_GT(sideways.maximum(), 0);
  EXPECT_EQ(sideways.value(), 0);
  for (const bool isOpen : {false, true}) {
    SendKey(Browser().Window(), Qt::Key_Return);
    EXPECT_EQ(Folders().Selected()->IsExpanded(), isOpen);
  }
}

TEST_F(ChartWindows, ThePanesAreAsWideAsTheirTitles) {
  Open();
  for (QDockWidget* pane : frame->findChildren<QDockWidget*>()) {
    pane->setWindowTitle(pane->windowTitle() + " of all that there is");
    pane->show();
    KeepTitleWhole(*pane);
    QApplication::processEvents();
    QStyleOptionDockWidget option;
    option.initFrom(pane);
    option.closable = option.floatable = true;
    const QRect room = pane->style()->subElementRect(QStyle::SE_DockWidgetTitleBarText, &option);
    EXPECT_GE(room.width(), pane->fontMetrics().horizontalAdvance(pane->windowTitle()));
  }
}

}  // namespace

}  // namespace morvane
