#pragma once

#include <string>

#include "platform/CPropertySheet.h"

/// The page of the texts that the C++ generator reads.
class CCodegenCPP : public CPropertyPage {
 public:
  enum ControlId : int {
    IDC_CONTEXT = 200,
    IDC_CLASS_NAME,
    IDC_INCLUDE_FILE,
    IDC_NAMESPACE,
    IDC_INFO,
    IDC_INCLUDES,
    IDC_DECLARATIONS
  };

  CCodegenCPP() : CPropertyPage("C++") {}

  void AddControls(CDialog& sheet, int page) override;
  void DoDataExchange(DataExchange& exchange) override;

  std::string className;
  std::string includeFile;
  std::string nameSpace;
  std::string includes;
  std::string declarations;
};
