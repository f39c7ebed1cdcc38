#pragma once

#include <string>

#include "platform/PropertySheet.h"

namespace morvane {

/// The page of the texts that the ANSI C generator reads.
class CCodegenC : public PropertyPage {
 public:
  enum ControlId : int { kInfoId = 300, kIncludesId, kDeclarationsId };

  CCodegenC() : PropertyPage("&ANSI C") {}

  void AddControls(Dialog& sheet, int page) override;
  void ExchangeFields(FieldExchange& exchange) override;

  std::string includes;
  std::string declarations;
};

}  // namespace morvane
