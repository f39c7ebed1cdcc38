#pragma once

#include <string>

#include "platform/PropertySheet.h"

namespace morvane {

/// The page of the texts that the C++ generator reads.
class CCodegenCPP : public PropertyPage {
 public:
  enum ControlId : int {
    kContextId = 200,
    kClassNameId,
    kIncludeFileId,
    kNamespaceId,
    kInfoId,
    kIncludesId,
    kDeclarationsId
  };

  CCodegenCPP() : PropertyPage("&C++") {}

  void AddControls(Dialog& sheet, int page) override;
  void ExchangeFields(FieldExchange& exchange) override;

  std::string className;
  std::string includeFile;
  std::string nameSpace;
  std::string includes;
  std::string declarations;
};

}  // namespace morvane
