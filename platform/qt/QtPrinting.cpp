#include "platform/qt/QtPrinting.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/CPrintInfo.h"
#include "platform/Files.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"
#include "platform/qt/PrinterSettings.h"
#include "platform/qt/QtPrintJob.h"
#include "platform/qt/QtPrintPreview.h"

namespace morvane {

namespace {

/// The dialog starts from a printer if there is one, also where pages went to a file last.
void ChooseFile(QPrintDialog& dialog) {
  auto* printers = dialog.findChild<QComboBox*>("printers");
  if (printers != nullptr) printers->setCurrentIndex(printers->count() - 1);
}

/// A file beside the chart, in the dialog's own field, should pages go to a file.
void ProposeFile(QPrintDialog& dialog, const std::string& path) {
  auto* field = dialog.findChild<QLineEdit*>("filename");
  if (field == nullptr || path.empty()) return;
  const std::string extension = ExtensionOf(path);
  field->setText(ShownPath(path.substr(0, path.size() - extension.size()) + ".pdf"));
}

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
  const bool toFile = chosen.outputFormat() == QPrinter::PdfFormat;
  QPrintDialog dialog(&chosen, DialogParent());
  dialog.setWindowTitle(ToQString(Worded("Print")));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies |
                    QAbstractPrintDialog::PrintShowPageSize);
  // Only a dialog that is shown has files among its printers.
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.show();
  if (toFile) ChooseFile(dialog);
  ProposeFile(dialog, info.path);
  if (dialog.exec() != QDialog::Accepted) return false;
  PrinterSettings::Store(chosen);
  TakeOrder(chosen, info);
  const bool isRange = chosen.printRange() == QPrinter::PageRange && chosen.fromPage() > 0;
  info.fromPage = isRange ? chosen.fromPage() : 1;
  info.toPage = isRange ? chosen.toPage() : CPrintInfo::kAllPages;
  return true;
}

void QtPrinting::SetUpPrinter() {
  QPageSetupDialog dialog(&Printer(), DialogParent());
  if (dialog.exec() == QDialog::Accepted) PrinterSettings::Store(Printer());
}

std::unique_ptr<PrintJob> QtPrinting::StartJob(const std::string& title) {
  return std::make_unique<QtPrintJob>(Printer(), ToQString(title), fonts);
}

void QtPrinting::ShowPreview(PrintedPages& pages) {
  QtPrintPreview(pages, Printer(), fonts, DialogParent()).exec();
}

}  // namespace morvane
