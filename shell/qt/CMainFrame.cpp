#include "shell/qt/CMainFrame.h"

#include <algorithm>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

#include "checks/ChartProblems.h"
#include "drawing/qt/QtText.h"
#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/ModalLoop.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/AllCommands.h"
#include "shell/ChartFiles.h"
#include "shell/MenuTable.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CDragToolBar.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/CommandBar.h"
#include "shell/qt/CommandMenu.h"
#include "shell/qt/FrameState.h"
#include "shell/qt/LockIndicators.h"
#include "shell/qt/ProblemsPane.h"
#include "shell/qt/RunDesk.h"
#include "shell/qt/RunPane.h"
#include "shell/qt/WindowTitle.h"
#include "shell/qt/ZoomBar.h"

/// What the toolkit makes of this stands outside of any namespace.
static void LoadIconResource() { Q_INIT_RESOURCE(icons); }

namespace morvane {

// The windows of the main window; what commands do is in CMainFrameCommands.cpp.

namespace {

constexpr const char* kBaseName = "Morvane_Diagram";
constexpr const char* kFilterText = "Morvane Files (*.mrv)";
constexpr const char* kExtension = ".mrv";
constexpr const char* kProgramName = "Morvane";
constexpr const char* kReadyText = "Ready";
constexpr QSize kFirstSize(1100, 760);
constexpr double kScreenPart = 0.9;
/// The bars follow the program's state at most this often.
constexpr int kIdleMilliseconds = 100;

/// The files and folders of this machine in what is dragged.
QStringList LocalPaths(const QMimeData* data) {
  QStringList paths;
  if (data == nullptr) return paths;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile() && !url.toLocalFile().isEmpty()) paths << url.toLocalFile();
  }
  return paths;
}

/// Whatever the program that the files come from proposes: one that hears of a move deletes them.
void AcceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

}  // namespace

CMainFrame::CMainFrame(Factories factories) : area(new QMdiArea(this)) {
  LoadIconResource();
  manager = std::make_unique<DocumentManager>(DocumentKind{kBaseName,
                                                           {Translate(kFilterText), kExtension},
                                                           std::move(factories.makeDocument),
                                                           std::move(factories.makeView)},
                                              *this);
  setWindowIcon(QIcon(":/icons/morvane.svg"));
  setCentralWidget(area);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  setAcceptDrops(true);
  resize(kFirstSize.boundedTo(screen()->availableSize() * kScreenPart));
  CreateMenus();
  CreateBars();
  CreateChartBrowser();
  CreateProblems();
  runs = new RunDesk(
      *this, [this] { return ActiveChild(); }, this);
  // While a chart runs its pane needs all the height that there is.
  runs->Pane().ShareWith(*chartBrowser);
  CreateKeys();
  connect(area, &QMdiArea::subWindowActivated, this, [this] { OnActivated(); });
  OnActivated();

  idleTimer.setSingleShot(true);
  idleTimer.setInterval(kIdleMilliseconds);
  connect(&idleTimer, &QTimer::timeout, this, [this] {
    RefreshBars();
    idleSeen = true;
  });
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          &CMainFrame::OnIdle);
}

CMainFrame::~CMainFrame() {
  // The charts' windows let their views go before the documents do.
  for (CChildFrame* child : Children()) delete child;
}

void CMainFrame::CreateMenus() {
  for (const MenuPopup& popup : StartMenu()) startMenus << new CommandMenu(popup, *this, this);
  for (const MenuPopup& popup : ChartMenu()) {
    chartMenus << new CommandMenu(popup, *this, this);
    const bool windows = std::ranges::any_of(
        popup.entries, [](const MenuEntry& entry) { return entry.id == ID_WINDOW_CASCADE; });
    if (windows) windowMenu = chartMenus.last();
  }
  connect(windowMenu, &QMenu::aboutToShow, this, &CMainFrame::FillWindowList);
  ShowMenu(false);
}

void CMainFrame::ShowMenu(bool forChart) {
  chartMenuShown = forChart;
  menuBar()->clear();
  for (CommandMenu* menu : forChart ? chartMenus : startMenus) menuBar()->addMenu(menu);
}

void CMainFrame::FillWindowList() {
  qDeleteAll(windowList);
  windowList.clear();
  QList<CChildFrame*> children = Children();
  children.removeIf([](const CChildFrame* child) { return !child->IsReady(); });
  if (!children.isEmpty()) windowList << windowMenu->addSeparator();
  for (qsizetype i = 0; i < children.size(); ++i) {
    CChildFrame* child = children[i];
    const QString title = MenuTitle(*child->Document());
    QAction* action =
        windowMenu->addAction(i < 9 ? QStringLiteral("&%1 %2").arg(i + 1).arg(title) : title);
    action->setCheckable(true);
    action->setChecked(child == ActiveChild());
    connect(action, &QAction::triggered, child, [this, child] { area->setActiveSubWindow(child); });
    windowList << action;
  }
}

void CMainFrame::CreateKeys() {
  for (const Command* command : AllCommands()) {
    for (const QString& keys : FromUtf8(command->keys).split(' ', Qt::SkipEmptyParts)) {
      auto* shortcut = new QShortcut(QKeySequence(keys), this);
      const unsigned id = command->id;
      connect(shortcut, &QShortcut::activated, this, [this, id] { RunCommand(id); });
    }
  }
}

void CMainFrame::CreateBars() {
  toolBar = new CommandBar(ToQString(Translate("Toolbar")), ToolBarButtons(), *this, this);
  toolBar->setObjectName("toolBar");
  addToolBar(toolBar);
  drawingBar =
      new CDragToolBar(ToQString(Translate("Drawing Toolbar")), DrawingBarButtons(), *this, this);
  drawingBar->setObjectName("drawingBar");
  addToolBar(drawingBar);
  statusText = new QLabel(this);
  statusText->setTextFormat(Qt::PlainText);
  statusBar()->addWidget(statusText);
  problemCount = new QLabel(this);
  statusBar()->addPermanentWidget(problemCount);
  zoomBar = new ZoomBar(*this, statusBar());
  statusBar()->addPermanentWidget(zoomBar);
  new LockIndicators(statusBar());
}

void CMainFrame::CreateChartBrowser() {
  const auto open = [this](const std::string& path) {
    if (!IsBusy()) OpenChartFile(*manager, path);
  };
  chartBrowser = new ChartBrowserPane(open, this);
  addDockWidget(Qt::RightDockWidgetArea, chartBrowser);
  chartBrowser->SelectStoredFolder();
}

void CMainFrame::CreateProblems() {
  const auto choose = [this](const Problem& problem) {
    if (const ChartProblems* known = ReachableProblems()) known->Show(problem);
  };
  const auto fix = [this](const Problem& problem) {
    if (const ChartProblems* known = ReachableProblems()) known->Fix(problem);
  };
  const auto fixFor = [this](const Problem& problem) {
    const CChildFrame* child = ActiveChild();
    const ChartProblems* known = child != nullptr ? child->Problems() : nullptr;
    return known != nullptr ? known->FixFor(problem) : std::string();
  };
  problems = new ProblemsPane({fixFor, choose, fix}, this);
  addDockWidget(Qt::BottomDockWidgetArea, problems);
}

void CMainFrame::ShowProblems() {
  const CChildFrame* child = ActiveChild();
  const ChartProblems* known = child != nullptr ? child->Problems() : nullptr;
  const std::vector<Problem> found = known != nullptr ? known->Problems() : std::vector<Problem>();
  problems->Show(found);
  const auto errors = std::ranges::count(found, Problem::Severity::Error, &Problem::severity);
  const auto warnings = std::ssize(found) - errors;
  QStringList counts;
  if (errors > 0) counts << ToQString(WithName(Translate("Errors: %1"), std::to_string(errors)));
  if (warnings > 0) {
    counts << ToQString(WithName(Translate("Warnings: %1"), std::to_string(warnings)));
  }
  problemCount->setText(counts.join("  "));
}

const ChartProblems* CMainFrame::ReachableProblems() const {
  const CChildFrame* child = ActiveChild();
  return child != nullptr && !IsBusy() ? child->Problems() : nullptr;
}

QMenu* CMainFrame::createPopupMenu() {
  auto* menu = new CommandMenu(BarMenu(), *this, this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

void CMainFrame::OnIdle() {
  // The wait that follows a refresh must not ask for the next one.
  if (std::exchange(idleSeen, false)) return;
  if (!idleTimer.isActive()) idleTimer.start();
}

void CMainFrame::RefreshBars() {
  if (IsAnyWaiting() || IsInDialog()) return;
  toolBar->Refresh();
  drawingBar->Refresh();
  zoomBar->Refresh();
}

void CMainFrame::OnActivated() {
  const bool forChart = ActiveChild() != nullptr;
  for (const CChildFrame* child : Children()) {
    if (child != ActiveChild() && child->View() != nullptr) child->View()->OnDeactivate();
  }
  if (forChart != chartMenuShown) ShowMenu(forChart);
  ShowTitle();
  ShowProblems();
  if (runs != nullptr) runs->OnActivated();
  RefreshBars();
  TellListener();
}

void CMainFrame::TellListener() {
  if (listener != nullptr) listener->OnWindowsChanged();
}

void CMainFrame::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // The user comes back from another program, which may have written to the files.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) manager->LookAtFiles();
}

void CMainFrame::ShowTitle() {
  const CChildFrame* child = ActiveChild();
  const CDocument* document = child != nullptr ? child->Document() : nullptr;
  setWindowTitle(document != nullptr ? MarkedTitle(*document) + " - " + kProgramName
                                     : QString(kProgramName));
  setWindowModified(document != nullptr && document->HasUnsavedMark());
  const std::string status = document != nullptr ? document->StatusText() : std::string();
  statusText->setText(ToQString(status.empty() ? Translate(kReadyText) : status));
}

CChildFrame* CMainFrame::ActiveChild() const {
  auto* child = qobject_cast<CChildFrame*>(area->currentSubWindow());
  return child != nullptr && child->IsReady() ? child : nullptr;
}

QList<CChildFrame*> CMainFrame::Children() const {
  QList<CChildFrame*> children;
  for (QMdiSubWindow* window : area->subWindowList()) {
    if (auto* child = qobject_cast<CChildFrame*>(window)) children << child;
  }
  return children;
}

CChildFrame* CMainFrame::FrameOf(const CDocument& document) const {
  for (CChildFrame* child : Children()) {
    if (child->Document() == &document) return child;
  }
  return nullptr;
}

void CMainFrame::CreateFrame(CDocument& document) {
  auto* child = new CChildFrame(document, *manager);
  area->addSubWindow(child);
  child->FollowProblems(checker, [this] { ShowProblems(); });
  // The toolkit takes the mark of the chart that is still shown off the main window.
  ShowTitle();
}

void CMainFrame::ShowFrame(CDocument& document) {
  CChildFrame* child = FrameOf(document);
  if (child == nullptr) return;
  child->SetReady();
  const CChildFrame* active = ActiveChild();
  const bool maximised = active == nullptr || active == child || active->isMaximized();
  child->UpdateTitle();
  if (maximised) {
    child->showMaximized();
  } else {
    child->show();
  }
  area->setActiveSubWindow(child);
  child->Window()->setFocus();
  child->UpdateNotices();
  OnActivated();
}

void CMainFrame::ActivateFrame(CDocument& document) {
  CChildFrame* child = FrameOf(document);
  if (child == nullptr) return;
  if (child->isMinimized()) child->showNormal();
  area->setActiveSubWindow(child);
}

void CMainFrame::CloseFrame(CDocument& document) {
  CChildFrame* child = FrameOf(document);
  if (child == nullptr) return;
  child->Detach();
  area->removeSubWindow(child);
  child->hide();
  child->deleteLater();
  OnActivated();
}

void CMainFrame::UpdateTitle(CDocument& document) {
  if (CChildFrame* child = FrameOf(document)) child->UpdateTitle();
  ShowTitle();
  TellListener();
}

void CMainFrame::UpdateNotices(CDocument& document) {
  if (CChildFrame* child = FrameOf(document)) child->UpdateNotices();
}

bool CMainFrame::IsAnyWaiting() const {
  const QList<CChildFrame*> children = Children();
  return std::any_of(children.begin(), children.end(),
                     [](CChildFrame* child) { return child->Window()->IsWaiting(); });
}

bool CMainFrame::IsInDialog() const {
  return ModalLoop::IsRunning() || QApplication::activeModalWidget() != nullptr;
}

bool CMainFrame::IsBusy() const {
  return IsAnyWaiting() || IsInDialog() || QApplication::activePopupWidget() != nullptr;
}

void CMainFrame::EndGestures() {
  for (CChildFrame* child : Children()) child->Window()->EndLoop();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (IsAnyWaiting()) {
    // A gesture is under way: it ends first.
    EndGestures();
    QTimer::singleShot(0, this, &QWidget::close);
    return;
  }
  if (IsInDialog()) {
    // What works on a chart goes first: a menu by itself, a dialog when the user is done with it.
    QWidget* popup = QApplication::activePopupWidget();
    if (popup == nullptr) return;
    popup->close();
    QTimer::singleShot(0, this, &QWidget::close);
    return;
  }
  chartBrowser->StoreFolder();
  if (!manager->SaveAllModified()) return;
  if (listener != nullptr) listener->OnClosing();
  SetListener(nullptr);
  manager->CloseAllDocuments();
  FrameState::Save(*this);
  event->accept();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!IsBusy() && !LocalPaths(event->mimeData()).isEmpty()) AcceptAsCopy(*event);
}

void CMainFrame::dropEvent(QDropEvent* event) {
  const QStringList paths = LocalPaths(event->mimeData());
  if (IsBusy() || paths.isEmpty()) return;
  AcceptAsCopy(*event);
  // Behind the drop: the program that the files come from waits for its end, and must not wait for
  // a message about one of them.
  QTimer::singleShot(0, this, [this, paths] { OpenDropped(paths); });
}

void CMainFrame::OpenDropped(const QStringList& paths) {
  if (IsBusy()) {
    QTimer::singleShot(kIdleMilliseconds, this, [this, paths] { OpenDropped(paths); });
    return;
  }
  for (const QString& path : paths) manager->OpenDocumentFile(FromQPath(path));
}

}  // namespace morvane
