#include "shell/qt/ChildFrame.h"

#include <QCloseEvent>
#include <QTimer>

#include "platform/CDocManager.h"
#include "platform/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtView.h"

namespace {

constexpr QSize kNormalSize(640, 480);

}  // namespace

ChildFrame::ChildFrame(CDocument& document, CDocManager& manager)
    : document(&document), manager(manager), viewWidget(new QtView(*document.GetView(), this)) {
  setWindowIcon(QIcon(":/icons/morvane.svg"));
  setWidget(viewWidget);
  setFocusProxy(viewWidget);
  resize(sizeHint());
}

ChildFrame::~ChildFrame() { Detach(); }

QSize ChildFrame::sizeHint() const { return kNormalSize; }

CScrollView* ChildFrame::View() const { return viewWidget->View(); }

void ChildFrame::Detach() {
  viewWidget->Detach();
  document = nullptr;
}

void ChildFrame::UpdateTitle() {
  // A maximised window shows its title in the main window alone, which does that itself.
  const bool own = document != nullptr && !isMaximized();
  setWindowTitle(own ? ToQString(document->GetTitle()) : QString());
}

void ChildFrame::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) UpdateTitle();
  QMdiSubWindow::changeEvent(event);
}

void ChildFrame::closeEvent(QCloseEvent* event) {
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
  if (document->SaveModified()) manager.CloseDocument(*document);
}
