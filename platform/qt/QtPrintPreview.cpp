#include "platform/qt/QtPrintPreview.h"

#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"
#include "platform/Printing.h"
#include "platform/Wording.h"
#include "platform/qt/QtPrintJob.h"
#include "platform/qt/SvgIcon.h"

namespace morvane {

namespace {

constexpr QSize kFirstSize(900, 700);
constexpr int kIconSize = 18;
constexpr int kLabelMargin = 6;
constexpr double kZoomStep = 1.25;
constexpr double kSmallestZoom = 0.1;
constexpr double kGreatestZoom = 8;

}  // namespace

QtPrintPreview::QtPrintPreview(PrintedPages& pages, QPrinter& printer, QtFontCache& fonts,
                               QWidget* parent)
    : QDialog(parent),
      pages(pages),
      printer(printer),
      fonts(fonts),
      bar(new QToolBar(this)),
      view(new QPrintPreviewWidget(&printer, this)),
      position(new QLabel(this)) {
  setWindowTitle(ToQString(Worded("Print Preview") + " - " + pages.Title()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(kFirstSize);
  CreateBar();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(view);
  connect(view, &QPrintPreviewWidget::paintRequested, this, &QtPrintPreview::PaintPages);
  connect(view, &QPrintPreviewWidget::previewChanged, this, &QtPrintPreview::Refresh);
  view->updatePreview();
}

QAction* QtPrintPreview::AddButton(const char* text, const char* icon,
                                   void (QtPrintPreview::*run)()) {
  QAction* action = bar->addAction(ToQString(Worded(text)), this, run);
  const SvgColours colours =
      SvgColours::On(palette().color(QPalette::Button), palette().color(QPalette::ButtonText));
  QIcon picture;
  AddSvgPixmaps(picture, icon, kIconSize, colours);
  action->setIcon(picture);
  return action;
}

void QtPrintPreview::CreateBar() {
  bar->setIconSize({kIconSize, kIconSize});
  print = AddButton("Print...", "print", &QtPrintPreview::Print);
  print->setShortcut(QKeySequence::Print);
  QAction* setUp = AddButton("Print Setup...", "settings", &QtPrintPreview::SetUp);
  for (QAction* named : {print, setUp}) {
    auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(named));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  }
  bar->addSeparator();
  previous = AddButton("Previous Page", "previous", &QtPrintPreview::GoBack);
  previous->setShortcut(Qt::Key_PageUp);
  next = AddButton("Next Page", "next", &QtPrintPreview::GoOn);
  next->setShortcut(Qt::Key_PageDown);
  bar->addWidget(position);
  position->setContentsMargins(kLabelMargin, 0, kLabelMargin, 0);
  all = AddButton("All Pages", "allpages", &QtPrintPreview::ToggleAll);
  all->setCheckable(true);
  bar->addSeparator();
  AddButton("Zoom In", "zoomin", &QtPrintPreview::ZoomIn)->setShortcut(QKeySequence::ZoomIn);
  AddButton("Zoom Out", "zoomout", &QtPrintPreview::ZoomOut)->setShortcut(QKeySequence::ZoomOut);
  AddButton("Whole Page", "zoomnormal", &QtPrintPreview::FitPage);
  bar->addSeparator();
  bar->addAction(ToQString(Worded("Close")), this, &QDialog::accept);
}

void QtPrintPreview::PaintPages(QPrinter* device) {
  const SIZE area = QtPrintJob::PageArea(*device);
  QtDC dc(*device, 1, area, fonts);
  dc.SetPaper(area, device->resolution());
  dc.SetGreys(device->colorMode() == QPrinter::GrayScale);
  std::string reason;
  const int count = pages.Begin(dc, reason);
  problem = ToQString(reason);
  if (!reason.empty()) return;
  for (int page = 1; page <= count; ++page) {
    if (page > 1) device->newPage();
    dc.Painter().setClipRect(0, 0, area.cx, area.cy);
    pages.Paint(dc, page);
  }
  pages.End(dc);
}

void QtPrintPreview::Refresh() {
  const int count = view->pageCount();
  const int page = view->currentPage();
  const bool hasPages = problem.isEmpty();
  print->setEnabled(hasPages);
  previous->setEnabled(hasPages && page > 1);
  next->setEnabled(hasPages && page < count);
  all->setEnabled(hasPages && (count > 1 || all->isChecked()));
  all->setChecked(view->viewMode() == QPrintPreviewWidget::AllPagesView);
  const QString counted = ToQString(Worded(kPageOfPages)).arg(page).arg(count);
  position->setText(hasPages ? counted : QString(problem).replace("\n\n", " "));
}

void QtPrintPreview::Print() {
  pages.Print();
  view->updatePreview();
}

void QtPrintPreview::SetUp() {
  pages.SetUp();
  view->updatePreview();
}

void QtPrintPreview::GoTo(int page) {
  view->setCurrentPage(page);
  Refresh();
}

void QtPrintPreview::GoBack() { GoTo(view->currentPage() - 1); }

void QtPrintPreview::GoOn() { GoTo(view->currentPage() + 1); }

void QtPrintPreview::ToggleAll() {
  view->setViewMode(all->isChecked() ? QPrintPreviewWidget::AllPagesView
                                     : QPrintPreviewWidget::SinglePageView);
  view->fitInView();
  Refresh();
}

void QtPrintPreview::ZoomIn() {
  if (view->zoomFactor() * kZoomStep <= kGreatestZoom) view->zoomIn(kZoomStep);
}

void QtPrintPreview::ZoomOut() {
  if (view->zoomFactor() / kZoomStep >= kSmallestZoom) view->zoomOut(kZoomStep);
}

void QtPrintPreview::FitPage() { view->fitInView(); }

}  // namespace morvane
