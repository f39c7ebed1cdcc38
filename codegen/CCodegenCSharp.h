#pragma once

#include <string>

#include "platform/CPropertySheet.h"

/// The page of the texts that the C# generator reads.
class CCodegenCSharp : public CPropertyPage {
 public:
  enum ControlId : int {
    IDC_CONTEXT = 500,
    IDC_CLASS_NAME,
    IDC_PACKAGE,
    IDC_INFO,
    IDC_DECLARATIONS
  };

  CCodegenCSharp() : CPropertyPage("C# (.Net)") {}

  void AddControls(CDialog& sheet, int page) override;
  void DoDataExchange(DataExchange& exchange) override;

  std::string className;
  std::string package;
  std::string declarations;
};
