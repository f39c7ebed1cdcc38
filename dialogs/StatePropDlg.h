#pragma once

#include <cstdint>
#include <string>

#include "model/Editors.h"
#include "platform/Dialog.h"

namespace morvane {

/// The properties of a state. The owner fills the fields and takes them back after OK.
class StatePropDlg : public Dialog, public StateFields {
 public:
  enum ControlId : int {
    kNameId = 100,
    kHistoryId,
    kBackgroundId,
    kBackgroundRowId,
    kTransparentId,
    kBgColourId
  };

  StatePropDlg();

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;

 private:
  void EnableButtons();
};

}  // namespace morvane
