#pragma once

#include "model/Editors.h"
#include "platform/Dialog.h"

namespace morvane {

/// How a chart is put on paper. Its printer button opens the desktop's own setup, which holds
/// whether this dialog is cancelled or not.
class PrinterSetup : public Dialog {
 public:
  enum ControlId : int { kPrintToFitId = 100, kPrinterId, kSheetTitlesId };

  PrinterSetup();

  PaperChoice choice;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnClicked(int id) override;
};

}  // namespace morvane
