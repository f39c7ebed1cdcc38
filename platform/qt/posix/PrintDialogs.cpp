#include "platform/qt/PrintDialogs.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"

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
  if (field != nullptr && !path.empty()) field->setText(ToQString(ProposedPdf(path)));
}

}  // namespace

bool ChoosePrinter(QPrinter& printer, const std::string& path) {
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  QPrintDialog dialog(&printer, DialogParent());
  dialog.setWindowTitle(ToQString(Worded("Print")));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies |
                    QAbstractPrintDialog::PrintShowPageSize);
  // Only a dialog that is shown has files among its printers.
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.show();
  if (toFile) ChooseFile(dialog);
  ProposeFile(dialog, path);
  return dialog.exec() == QDialog::Accepted;
}

bool ChoosePaper(QPrinter& printer) {
  return QPageSetupDialog(&printer, DialogParent()).exec() == QDialog::Accepted;
}

}  // namespace morvane
