#include "platform/qt/QtPrinting.h"

#include <QPrinter>

#include "platform/CPrintInfo.h"
#include "platform/Files.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"
#include "platform/qt/PrintDialogs.h"
#include "platform/qt/PrinterSettings.h"
#include "platform/qt/QtPrintJob.h"
#include "platform/qt/QtPrintPreview.h"

namespace morvane {

namespace {

/// A printer sees to copies and order itself; in a file they are ours.
void TakeOrder(const QPrinter& chosen, CPrintInfo& info) {
  if (chosen.outputFormat() == QPrinter::NativeFormat) return;
  info.copies = chosen.copyCount();
  info.collate = chosen.collateCopies();
  info.reverse = chosen.pageOrder() == QPrinter::LastPageFirst;
}

}  // namespace

QtPrinting::QtPrinting() = default;

QtPrinting::~QtPrinting() = default;

QPrinter& QtPrinting::Printer() {
  if (printer == nullptr) {
    printer = std::make_unique<QPrinter>();
    printer->setCreator("Morvane");
    PrinterSettings::Restore(*printer);
  }
  // Another printer may have been chosen since.
  printer->setResolution(kResolution);
  return *printer;
}

std::string ProposedPdf(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  return ToBytes(ShownPath(path.substr(0, path.size() - extension.size()) + ".pdf"));
}

bool QtPrinting::AskPrinter(CPrintInfo& info, const std::string& title) {
  QPrinter& chosen = Printer();
  chosen.setDocName(ToQString(title));
  const bool isReady =
      chosen.outputFormat() == QPrinter::NativeFormat || !chosen.outputFileName().isEmpty();
  if (info.direct && isReady) {
    TakeOrder(chosen, info);
    return true;
  }

  chosen.setPrintRange(QPrinter::AllPages);
  if (!ChoosePrinter(chosen, info.path)) return false;
  PrinterSettings::Store(chosen);
  TakeOrder(chosen, info);
  const bool isRange = chosen.printRange() == QPrinter::PageRange && chosen.fromPage() > 0;
  info.fromPage = isRange ? chosen.fromPage() : 1;
  info.toPage = isRange ? chosen.toPage() : CPrintInfo::kAllPages;
  return true;
}

void QtPrinting::SetUpPrinter() {
  if (ChoosePaper(Printer())) PrinterSettings::Store(Printer());
}

std::unique_ptr<PrintJob> QtPrinting::StartJob(const std::string& title) {
  return std::make_unique<QtPrintJob>(Printer(), ToQString(title), fonts);
}

void QtPrinting::ShowPreview(PrintedPages& pages) {
  QtPrintPreview(pages, Printer(), fonts, DialogParent()).exec();
}

}  // namespace morvane
