#pragma once

#include <string>

#include "platform/CPropertySheet.h"

/// The page of the texts that the Java generator reads.
class CCodegenJava : public CPropertyPage {
 public:
  enum ControlId : int {
    IDC_CONTEXT = 400,
    IDC_CLASS_NAME,
    IDC_PACKAGE,
    IDC_INFO,
    IDC_DECLARATIONS
  };

  CCodegenJava() : CPropertyPage("Java") {}

  void AddControls(CDialog& sheet, int page) override;
  void DoDataExchange(DataExchange& exchange) override;

  std::string className;
  std::string package;
  std::string declarations;
};
