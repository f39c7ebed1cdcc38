#include "dialogs/PrinterSetup.h"

#include "platform/DataExchange.h"
#include "platform/Printing.h"

PrinterSetup::PrinterSetup() : CDialog("Print Setup") {
  Add(DialogControl::Kind::CheckBox, IDC_PRINT_TO_FIT, "Print to Fit");
  Add(DialogControl::Kind::Button, IDC_PRINTER, "Printer Setup...");
  AddButtons("OK", "Cancel");
}

void PrinterSetup::DoDataExchange(DataExchange& exchange) {
  exchange.Check(IDC_PRINT_TO_FIT, printToFit);
}

void PrinterSetup::OnClicked(int id) {
  if (id == IDC_PRINTER) Service<Printing>::Get().SetUpPrinter();
}
