#include "shell/qt/CChildFrame.h"

#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QTimer>
#include <QVBoxLayout>

#include "checks/ChartProblems.h"
#include "persistence/CDocument.h"
#include "persistence/DocumentManager.h"
#include "platform/CScrollView.h"
#include "platform/ModalLoop.h"
#include "platform/qt/QtView.h"
#include "shell/ChartRun.h"
#include "shell/qt/NoticeBar.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "shell/qt/WindowTitle.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr QSize kNormalSize(640, 480);
/// A notice that came during a gesture waits so long before it tries again.
constexpr int kRetryMilliseconds = 200;

}  // namespace

CChildFrame::CChildFrame(CDocument& document, DocumentManager& manager)
    : document(&document), manager(manager), viewWidget(new QtView(*document.GetView(), this)) {
  setWindowIcon(QIcon(":/icons/morvane.svg"));
  // A window of its own inside this one lets the pane dock on each side of the chart.
  auto* inner = new QMainWindow(this);
  inner->setWindowFlags(Qt::Widget);
  auto* middle = new QWidget(inner);
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  notices = new NoticeBar(middle);
  rows->addWidget(notices);
  rows->addWidget(viewWidget, 1);
  inner->setCentralWidget(middle);
  connect(notices, &NoticeBar::Answered, this, [this](DocumentNotice::Answer answer) {
    if (this->document != nullptr && !viewWidget->IsWaiting() && !ModalLoop::IsRunning()) {
      this->document->OnNoticeAnswered(answer);
    }
  });
  objectBrowser = new ObjectBrowserPane(dynamic_cast<LayoutMgr*>(document.GetView()), inner);
  inner->addDockWidget(Qt::LeftDockWidgetArea, objectBrowser);
  setWidget(inner);
  setFocusProxy(viewWidget);
  resize(kNormalSize);
}

CChildFrame::~CChildFrame() { Detach(); }

QSize CChildFrame::sizeHint() const { return kNormalSize; }

CScrollView* CChildFrame::View() const { return viewWidget->View(); }

void CChildFrame::FollowProblems(ProblemChecker& checker, std::function<void()> changed) {
  auto* chart = dynamic_cast<LayoutMgr*>(View());
  if (chart == nullptr) return;
  problems = std::make_unique<ChartProblems>(*chart, checker, std::move(changed));
}

void CChildFrame::SetRun(std::shared_ptr<ChartRun> other) { run = std::move(other); }

std::shared_ptr<ChartRun> CChildFrame::TakeRun() { return std::exchange(run, nullptr); }

void CChildFrame::Detach() {
  run.reset();
  problems.reset();
  objectBrowser->Detach();
  viewWidget->Detach();
  document = nullptr;
}

void CChildFrame::UpdateTitle() {
  // A maximised window shows its title in the main window alone, which does that itself.
  const bool own = document != nullptr && !isMaximized();
  setWindowTitle(own ? MarkedInnerTitle(*document) : QString());
  setWindowModified(own && document->HasUnsavedMark());
}

void CChildFrame::UpdateNotices() {
  if (document == nullptr) return;
  // The chart must not move under a gesture.
  if (viewWidget->IsWaiting()) {
    QTimer::singleShot(kRetryMilliseconds, this, &CChildFrame::UpdateNotices);
    return;
  }
  notices->Show(document->Notices());
}

void CChildFrame::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) UpdateTitle();
  QMdiSubWindow::changeEvent(event);
}

void CChildFrame::closeEvent(QCloseEvent* event) {
  if (document == nullptr) {
    QMdiSubWindow::closeEvent(event);
    return;
  }
  event->ignore();
  if (viewWidget->IsWaiting()) {
    // A gesture is under way: it ends first.
    viewWidget->EndLoop();
    QTimer::singleShot(0, this, &QWidget::close);
    return;
  }
  // What waits on top of the chart works on it.
  if (ModalLoop::IsRunning() || QApplication::activeModalWidget() != nullptr) return;
  if (document->SaveModified()) manager.CloseDocument(*document);
}

}  // namespace morvane
