#pragma once

#include <string>

#include "platform/PropertySheet.h"

namespace morvane {

/// The page of the texts of a language whose classes stand in packages.
class CodegenPackage : public PropertyPage {
 public:
  void AddControls(Dialog& sheet, int page) override;
  void ExchangeFields(FieldExchange& exchange) override;

  std::string className;
  std::string package;
  std::string declarations;

 protected:
  /// The controls of a page, counted from its first number.
  enum Place : int { kContext, kClassName, kPackage, kInfo, kDeclarations };

  CodegenPackage(std::string title, std::string infoTitle, int firstId, Syntax syntax);

 private:
  std::string infoTitle;
  int firstId;
  Syntax syntax;
};

}  // namespace morvane
