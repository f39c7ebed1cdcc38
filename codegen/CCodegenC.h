#pragma once

#include <string>

#include "platform/CPropertySheet.h"

/// The page of the texts that the ANSI C generator reads.
class CCodegenC : public CPropertyPage {
 public:
  enum ControlId : int { IDC_INFO = 300, IDC_INCLUDES, IDC_DECLARATIONS };

  CCodegenC() : CPropertyPage("ANSI C") {}

  void AddControls(CDialog& sheet, int page) override;
  void DoDataExchange(DataExchange& exchange) override;

  std::string includes;
  std::string declarations;
};
