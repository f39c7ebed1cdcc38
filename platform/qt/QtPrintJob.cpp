#include "platform/qt/QtPrintJob.h"

#include <QPdfWriter>
#include <QPrinter>
#include <QProgressDialog>

#include "drawing/TextCodec.h"
#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"
#include "platform/Files.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"

namespace morvane {

namespace {

constexpr int kProgressDelay = 1000;  // milliseconds

}  // namespace

QtPrintJob::QtPrintJob(QPrinter& printer, const QString& title, QtFontCache& fonts)
    : printer(printer), fonts(fonts), blank(1, 1, QImage::Format_RGB32) {
  printer.setDocName(title);
  dc = std::make_unique<QtDC>(blank, 1, fonts);
  dc->SetPaper(PageArea(printer), printer.resolution());
}

QtPrintJob::~QtPrintJob() {
  if (page > 0 && dc != nullptr && pdf == nullptr) printer.abort();
}

SIZE QtPrintJob::PageArea(const QPrinter& printer) {
  const QSize area = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  return {std::max(area.width(), 0), std::max(area.height(), 0)};
}

bool QtPrintJob::Open() {
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    file.open(QIODevice::WriteOnly);
    pdf = std::make_unique<QPdfWriter>(&file);
    pdf->setTitle(printer.docName());
    pdf->setCreator(printer.creator());
    pdf->setResolution(printer.resolution());
    pdf->setPageLayout(printer.pageLayout());
  }
  const SIZE area = PageArea(printer);
  dc = std::make_unique<QtDC>(Device(), 1, area, fonts);
  dc->SetPaper(area, printer.resolution());
  dc->SetGreys(printer.colorMode() == QPrinter::GrayScale);
  return dc->Painter().isActive();
}

QPagedPaintDevice& QtPrintJob::Device() const {
  return pdf != nullptr ? static_cast<QPagedPaintDevice&>(*pdf) : printer;
}

CDC& QtPrintJob::DC() { return *dc; }

bool QtPrintJob::ShowProgress(int pages) {
  if (pages == 1) return true;
  if (progress == nullptr) {
    progress = std::make_unique<QProgressDialog>(
        ToQString(Worded("Printing...")), ToQString(Worded("Cancel")), 0, pages, DialogParent());
    progress->setWindowTitle(ToQString(Worded("Print")));
    progress->setWindowModality(Qt::ApplicationModal);
    progress->setMinimumDuration(kProgressDelay);
  }
  progress->setValue(page);
  return !progress->wasCanceled();
}

bool QtPrintJob::StartPage(int pages) {
  cancelled = !ShowProgress(pages);
  if (cancelled) return false;
  failed = page == 0 ? !Open() : !Device().newPage();
  ++page;
  if (failed) return false;
  // Nothing shows in the margins.
  const SIZE area = PageArea(printer);
  dc->Painter().setClipRect(0, 0, area.cx, area.cy);
  return true;
}

std::string QtPrintJob::End() {
  progress.reset();
  if (cancelled) return {};
  dc.reset();
  if (pdf != nullptr && !failed) return WriteFile();
  failed = failed || printer.printerState() == QPrinter::Error;
  return failed ? Worded(kPrinterFails) : std::string();
}

std::string QtPrintJob::WriteFile() {
  pdf.reset();
  const std::string path = FromQPath(printer.outputFileName());
  const QByteArray& bytes = file.data();
  const FileResult written =
      ReplaceWholeFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  return written.Ok() ? std::string() : ToUtf8(path) + "\n\n" + written.ErrorText();
}

}  // namespace morvane
