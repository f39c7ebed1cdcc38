#include "platform/qt/QtPrinting.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/CPrintInfo.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"
#include "platform/qt/QtPrintJob.h"
#include "platform/qt/QtPrintPreview.h"

namespace morvane {

QtPrinting::QtPrinting() = default;

QtPrinting::~QtPrinting() = default;

QPrinter& QtPrinting::Printer() {
  if (printer == nullptr) {
    printer = std::make_unique<QPrinter>();
    printer->setCreator("Morvane");
  }
  // Another printer may have been chosen since.
  printer->setResolution(kResolution);
  return *printer;
}

bool QtPrinting::AskPrinter(CPrintInfo& info, const std::string& title) {
  QPrinter& chosen = Printer();
  chosen.setDocName(ToQString(title));
  const bool isReady =
      chosen.outputFormat() == QPrinter::NativeFormat || !chosen.outputFileName().isEmpty();
  if (info.direct && isReady) return true;

  chosen.setPrintRange(QPrinter::AllPages);
  QPrintDialog dialog(&chosen, DialogParent());
  dialog.setWindowTitle(ToQString(Worded("Print")));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies |
                    QAbstractPrintDialog::PrintShowPageSize);
  if (dialog.exec() != QDialog::Accepted) return false;
  const bool isRange = chosen.printRange() == QPrinter::PageRange && chosen.fromPage() > 0;
  info.fromPage = isRange ? chosen.fromPage() : 1;
  info.toPage = isRange ? chosen.toPage() : CPrintInfo::kAllPages;
  return true;
}

void QtPrinting::SetUpPrinter() { QPageSetupDialog(&Printer(), DialogParent()).exec(); }

std::unique_ptr<PrintJob> QtPrinting::StartJob(const std::string& title) {
  return std::make_unique<QtPrintJob>(Printer(), ToQString(title), fonts);
}

void QtPrinting::ShowPreview(PrintedPages& pages) {
  QtPrintPreview(pages, Printer(), fonts, DialogParent()).exec();
}

}  // namespace morvane
