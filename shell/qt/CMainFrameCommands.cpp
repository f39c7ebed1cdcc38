#include <QApplication>
#include <QMdiArea>
#include <QStatusBar>

#include "dialogs/CDefaultSettingDlg.h"
#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "shell/HelpCommands.h"
#include "shell/MenuTable.h"
#include "shell/Preferences.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/CSplashDlg.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/CommandBar.h"
#include "shell/qt/ObjectBrowserPane.h"

// The way of a command: the active view first, then its document, then the frame.

CommandState CMainFrame::StateOf(unsigned id) {
  // While a gesture waits for its next message, or a dialog for the user, the chart must not change
  // under it. A key that is meant for the window behind a dialog comes here all the same.
  if (IsAnyWaiting() || IsInDialog()) return CommandState::Enabled(false);
  if (CChildFrame* child = ActiveChild()) {
    const CommandState state = child->View()->OnUpdateCommand(id);
    if (state.handled) return state;
    const CommandState frame = child->StateOf(id);
    if (frame.handled) return frame;
    const CommandState own = DocumentState(id);
    if (own.handled) return own;
  }
  return FrameState(id);
}

bool CMainFrame::RunCommand(unsigned id) {
  if (!StateOf(id).enabled) return false;
  if (CChildFrame* child = ActiveChild()) {
    if (child->View()->OnUpdateCommand(id).handled) return child->View()->OnCommand(id);
    if (child->RunCommand(id)) return true;
    if (DocumentState(id).handled) {
      RunDocumentCommand(id);
      return true;
    }
  }
  RunFrameCommand(id);
  return true;
}

CommandState CMainFrame::DocumentState(unsigned id) const {
  if (id == ID_FILE_REVERT) return CommandState::Enabled(ActiveChild()->Document()->CanRevert());
  const bool known = id == ID_FILE_SAVE || id == ID_FILE_SAVE_AS || id == ID_FILE_CLOSE;
  return known ? CommandState::Enabled(true) : CommandState{};
}

void CMainFrame::RunDocumentCommand(unsigned id) {
  CChildFrame* child = ActiveChild();
  switch (id) {
    case ID_FILE_SAVE: child->Document()->DoFileSave(); break;
    case ID_FILE_SAVE_AS: child->Document()->DoFileSaveAs(); break;
    case ID_FILE_REVERT: child->Document()->Revert(); break;
    default: child->close(); break;
  }
}

QWidget* CMainFrame::BarOf(unsigned id) const {
  switch (id) {
    case ID_VIEW_TOOLBAR: return toolBar;
    case ID_DRAWING_BAR: return drawingBar;
    case ID_CHART_BROWSER: return chartBrowser;
    case ID_VIEW_STATUS_BAR: return statusBar();
    default: return nullptr;
  }
}

CommandState CMainFrame::FrameState(unsigned id) const {
  if (const QWidget* bar = BarOf(id)) return CommandState::Checked(!bar->isHidden());
  if (IsRecentFileCommand(id)) {
    return CommandState::Enabled(id - ID_FILE_RECENT < RecentPaths().size());
  }
  switch (id) {
    case ID_FILE_NEW:
    case ID_FILE_OPEN:
    case ID_APP_EXIT:
    case ID_DEFAULT_SETTINGS:
    case ID_PREFERENCES:
    case ID_USER_GUIDE:
    case ID_TUTORIAL:
    case ID_WEB_PAGE:
    case ID_APP_ABOUT: return CommandState::Enabled(true);
    case ID_CLOSE_ALL:
    case ID_NEXT_PANE:
    case ID_PREV_PANE:
    case ID_WINDOW_CASCADE:
    case ID_WINDOW_TILE:
    case ID_WINDOW_ARRANGE: return CommandState::Enabled(ActiveChild() != nullptr);
    default: return {};
  }
}

void CMainFrame::RunFrameCommand(unsigned id) {
  if (QWidget* bar = BarOf(id)) {
    bar->setVisible(bar->isHidden());
    return;
  }
  if (IsRecentFileCommand(id)) {
    manager->OnOpenRecentFile(id - ID_FILE_RECENT);
    return;
  }
  if (HelpCommands::Run(id)) return;
  switch (id) {
    case ID_FILE_NEW: manager->NewDocument(); break;
    case ID_FILE_OPEN: manager->OnFileOpen(); break;
    case ID_CLOSE_ALL: CloseAll(); break;
    case ID_NEXT_PANE: FocusPane(1); break;
    case ID_PREV_PANE: FocusPane(-1); break;
    case ID_WINDOW_CASCADE: area->cascadeSubWindows(); break;
    case ID_WINDOW_TILE: area->tileSubWindows(); break;
    case ID_WINDOW_ARRANGE: ArrangeIcons(); break;
    case ID_DEFAULT_SETTINGS: CDefaultSettingDlg::Instance().ShowDialog(); break;
    case ID_PREFERENCES: EditPreferences(); break;
    case ID_APP_ABOUT: ShowAbout(); break;
    case ID_APP_EXIT: close(); break;
    default: break;
  }
}

const std::vector<std::string>& CMainFrame::RecentPaths() const {
  manager->Recent().Load();
  return manager->Recent().Paths();
}

/// Moves the keyboard from pane to pane: the chart, its object browser, the chart browser.
void CMainFrame::FocusPane(int step) {
  CChildFrame* child = ActiveChild();
  QList<QWidget*> panes{child->Window(), &child->ObjectBrowser().Window(), &chartBrowser->Window()};
  panes.removeIf([](const QWidget* pane) { return !pane->isVisible(); });
  if (panes.isEmpty()) return;
  const qsizetype present = panes.indexOf(QApplication::focusWidget());
  const qsizetype next = present < 0 ? 0 : (present + step + panes.size()) % panes.size();
  panes[next]->setFocus(Qt::ShortcutFocusReason);
}

void CMainFrame::CloseAll() {
  if (manager->SaveAllModified()) manager->CloseAllDocuments();
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
