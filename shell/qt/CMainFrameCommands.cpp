#include <algorithm>
#include <utility>

#include <QApplication>
#include <QMdiArea>
#include <QPointer>
#include <QStatusBar>
#include <QStyle>
#include <QTreeWidget>

#include "drawing/qt/QtText.h"
#include "model/ModelMgr.h"
#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "review/ChartComparison.h"
#include "shell/FrameCommands.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/CSplashDlg.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/CommandBar.h"
#include "shell/qt/CompareWindow.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "shell/qt/ProblemsPane.h"
#include "shell/qt/RunDesk.h"
#include "shell/qt/RunPane.h"
#include "surface/LayoutMgr.h"

namespace morvane {

// The way of a command, to the active view or else to the frame, and what the commands of the frame
// do with its windows.

CommandState CMainFrame::StateOf(unsigned id) {
  // While a gesture waits for its next message, or a dialog for the user, the chart must not change
  // under it. A key that is meant for the window behind a dialog comes here all the same.
  if (IsAnyWaiting() || IsInDialog()) return CommandState::Enabled(false);
  if (CChildFrame* child = ActiveChild()) {
    const CommandState state = child->View()->OnUpdateCommand(id);
    if (state.handled) return state;
  }
  return FrameCommands().StateOf(*this, id);
}

bool CMainFrame::RunCommand(unsigned id) {
  if (IsAnyWaiting() || IsInDialog()) return false;
  // What the view refuses is not in the other table.
  CChildFrame* child = ActiveChild();
  if (child != nullptr && child->View()->OnCommand(id)) return true;
  return FrameCommands().Run(*this, id);
}

const std::vector<std::string>& CMainFrame::RecentPaths() const {
  manager->Recent().Load();
  return manager->Recent().Paths();
}

CDocument* CMainFrame::ActiveDocument() const {
  const CChildFrame* child = ActiveChild();
  return child != nullptr ? child->Document() : nullptr;
}

const ModelProperties* CMainFrame::ActiveProperties() const {
  const CDocument* document = ActiveDocument();
  auto* chart = document != nullptr ? dynamic_cast<LayoutMgr*>(document->GetView()) : nullptr;
  return chart != nullptr ? &chart->GetProperties() : nullptr;
}

void CMainFrame::CloseActive() { ActiveChild()->close(); }

void CMainFrame::ShowComparison(CDocument& document, const std::string& file,
                                std::unique_ptr<ChartComparison> comparison) {
  CChildFrame* child = FrameOf(document);
  if (child == nullptr) return;
  const auto select = [this, child = QPointer(child)](std::int32_t id, const std::string& keyword) {
    if (child.isNull() || !child->IsReady() || IsBusy()) return;
    auto* chart = dynamic_cast<LayoutMgr*>(child->View());
    Shape* shape = chart != nullptr ? chart->GetModel().Find(id) : nullptr;
    if (shape == nullptr || shape->GetTypeName() != keyword) return;
    area->setActiveSubWindow(child);
    chart->Reveal({shape});
  };
  auto* window = new CompareWindow(std::move(comparison), select, this);
  window->setWindowTitle(ToQString(FileNameOf(file) + " \u2192 " + document.GetTitle()));
  connect(child, &QObject::destroyed, window, &QWidget::close);
  window->show();
}

QWidget* CMainFrame::PartOf(unsigned id) const {
  switch (id) {
    case ID_OBJECT_BROWSER: return &ActiveChild()->ObjectBrowser();
    case ID_VIEW_TOOLBAR: return toolBar;
    case ID_DRAWING_BAR: return drawingBar;
    case ID_PROBLEMS: return problems;
    case ID_CHART_BROWSER: return chartBrowser;
    default: return statusBar();
  }
}

bool CMainFrame::IsPartShown(unsigned id) const { return !PartOf(id)->isHidden(); }

void CMainFrame::ShowPart(unsigned id, bool show) {
  if (id == ID_PROBLEMS) return problems->ShowPart(show);
  PartOf(id)->setVisible(show);
}

void CMainFrame::FocusPane(int step) {
  CChildFrame* child = ActiveChild();
  QList<QWidget*> panes{child->Window(), &child->ObjectBrowser().Window(), &problems->Window(),
                        &chartBrowser->Window(), &runs->Pane().Window()};
  panes.removeIf([](const QWidget* pane) { return !pane->isVisible(); });
  if (panes.isEmpty()) return;
  const qsizetype present = panes.indexOf(QApplication::focusWidget());
  const qsizetype next = present < 0 ? 0 : (present + step + panes.size()) % panes.size();
  panes[next]->setFocus(Qt::ShortcutFocusReason);
}

CommandState CMainFrame::RunStateOf(unsigned id) const { return runs->StateOf(id); }

void CMainFrame::ExecuteRun(unsigned id) { runs->Execute(id); }

void CMainFrame::ArrangeWindows(Arrangement arrangement) {
  switch (arrangement) {
    case Arrangement::Cascade: Cascade(); break;
    case Arrangement::Tile: area->tileSubWindows(); break;
    case Arrangement::Icons: ArrangeIcons(); break;
  }
}

/// Each window stands one title bar below the one behind it. Where there is no room left downwards
/// another row begins at the top, further to the right.
void CMainFrame::Cascade() {
  QList<QMdiSubWindow*> windows = area->subWindowList(QMdiArea::StackingOrder);
  windows.removeIf(
      [](const QWidget* window) { return window->isMinimized() || window->isHidden(); });
  if (windows.isEmpty()) return;
  for (QMdiSubWindow* window : windows) {
    if (window->isMaximized()) window->showNormal();
  }
  const QMdiSubWindow* any = windows.first();
  const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, any) +
                   style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, any);
  const QSize room = area->viewport()->size();
  const int count = static_cast<int>(windows.size());
  const int inRow = std::clamp(room.height() / 2 / step + 1, 1, count);
  const int rows = (count + inRow - 1) / inRow;
  // In several rows the windows of one stand straight below each other, and hide no other's titles.
  const QSize shift(rows > 1 ? 0 : step, step);
  const int aside = room.width() / 2 / rows;
  const QSize size = room - shift * (inRow - 1) - QSize(aside * (rows - 1), 0);
  for (int i = 0; i < count; ++i) {
    const QPoint corner(i / inRow * aside + i % inRow * shift.width(), i % inRow * shift.height());
    windows[i]->setGeometry({corner, size});
  }
}

void CMainFrame::ArrangeIcons() {
  // From left to right along the bottom, row above row.
  const QRect room = area->viewport()->rect();
  int x = 0;
  int bottom = room.bottom() + 1;
  for (CChildFrame* child : Children()) {
    if (!child->isMinimized()) continue;
    if (x > 0 && x + child->width() > room.width()) {
      x = 0;
      bottom -= child->height();
    }
    child->move(x, bottom - child->height());
    x += child->width();
  }
}

void CMainFrame::ShowAbout() { CSplashDlg(true, this).exec(); }

}  // namespace morvane
