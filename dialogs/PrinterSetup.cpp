#include "dialogs/PrinterSetup.h"

#include "platform/FieldExchange.h"
#include "platform/Printing.h"

namespace morvane {

PrinterSetup::PrinterSetup() : Dialog("Print Setup") {
  Add(DialogControl::Kind::CheckBox, kPrintToFitId, "Print to &Fit");
  Add(DialogControl::Kind::CheckBox, kSheetTitlesId, "Print &name and page number");
  Add(DialogControl::Kind::Button, kPrinterId, "&Printer Setup...");
  AddButtons("OK", "Cancel");
}

void PrinterSetup::ExchangeFields(FieldExchange& exchange) {
  exchange.Check(kPrintToFitId, choice.printToFit);
  exchange.Check(kSheetTitlesId, choice.sheetTitles);
}

void PrinterSetup::OnClicked(int id) {
  if (id == kPrinterId) Service<Printing>::Get().SetUpPrinter();
}

}  // namespace morvane
