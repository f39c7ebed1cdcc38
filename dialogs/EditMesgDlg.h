#pragma once

#include <string>

#include "platform/Dialog.h"

namespace morvane {

/// The editor of a note's text.
class EditMesgDlg : public Dialog {
 public:
  enum ControlId : int { kTextId = 100 };

  EditMesgDlg();

  std::string title = "Text";  ///< begins the caption
  std::string text;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
};

}  // namespace morvane
