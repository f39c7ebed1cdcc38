#pragma once

#include <string>

#include "platform/Dialog.h"

namespace morvane {

/// The texts that describe a model.
class LayoutMgrPropDlg : public Dialog {
 public:
  enum ControlId : int { kModelNameId = 100, kAuthorId, kDescriptionId };

  LayoutMgrPropDlg();

  std::string modelName;
  std::string author;
  std::string description;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
};

}  // namespace morvane
