#include "platform/qt/PrintDialogs.h"

#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "drawing/qt/QtText.h"
#include "platform/MessageBox.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"

namespace morvane {

namespace {

/// The system's own dialogs stay closed where it has no printer.
bool HasPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

bool ChooseFile(QPrinter& printer, const std::string& path) {
  const QString proposed = path.empty() ? QString() : ToQString(ProposedPdf(path));
  const QString file = QFileDialog::getSaveFileName(
      DialogParent(), ToQString(Worded("Print")), proposed, ToQString(Worded("PDF Page (*.pdf)")));
  if (file.isEmpty()) return false;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(file);
  return true;
}

}  // namespace

bool ChoosePrinter(QPrinter& printer, const std::string& path) {
  if (!HasPrinter()) return ChooseFile(printer, path);
  // Files are printers of their own here.
  if (printer.outputFormat() != QPrinter::NativeFormat) {
    printer.setOutputFormat(QPrinter::NativeFormat);
  }
  QPrintDialog dialog(&printer, DialogParent());
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  return dialog.exec() == QDialog::Accepted;
}

bool ChoosePaper(QPrinter& printer) {
  if (!HasPrinter()) {
    ShowMessage(Worded(kNoPrinter));
    return false;
  }
  if (printer.outputFormat() != QPrinter::NativeFormat) {
    printer.setOutputFormat(QPrinter::NativeFormat);
  }
  return QPageSetupDialog(&printer, DialogParent()).exec() == QDialog::Accepted;
}

}  // namespace morvane
