#pragma once

#include <string>

#include "platform/CPropertySheet.h"

/// The page of the texts of a language whose classes stand in packages.
class CCodegenPackage : public CPropertyPage {
 public:
  void AddControls(CDialog& sheet, int page) override;
  void DoDataExchange(DataExchange& exchange) override;

  std::string className;
  std::string package;
  std::string declarations;

 protected:
  /// The controls of a page, counted from its first number.
  enum Place : int { kContext, kClassName, kPackage, kInfo, kDeclarations };

  CCodegenPackage(std::string title, std::string infoTitle, int firstId);

 private:
  std::string infoTitle;
  int firstId;
};
