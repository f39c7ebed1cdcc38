#pragma once

#include <cstdint>

#include "platform/CDialog.h"

/// How a chart is put on paper. Its printer button opens the desktop's own setup, which holds
/// whether this dialog is cancelled or not.
class PrinterSetup : public CDialog {
 public:
  enum ControlId : int { IDC_PRINT_TO_FIT = 100, IDC_PRINTER };

  PrinterSetup();

  std::int32_t printToFit = 0;  ///< the whole chart on one page

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnClicked(int id) override;
};
