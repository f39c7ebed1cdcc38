#pragma once

#include <cstdint>
#include <string>

#include "model/Editors.h"
#include "platform/Dialog.h"

namespace morvane {

/// The properties of a message or a note. The owner fills the fields and takes them back after OK.
class MesgPropDlg : public Dialog, public BoxFields {
 public:
  enum ControlId : int {
    kBackgroundId = 100,
    kBackgroundRowId,
    kTransparentId,
    kBgColourId,
    kBorderId,
    kBorderRowId,
    kNoBorderId,
    kBorderColourId,
    kAnchorId,
    kHiddenId
  };

  MesgPropDlg();

  std::string title;  ///< the caption
  std::int32_t mayChangeBorder = 1;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;

 private:
  void EnableButtons();
};

}  // namespace morvane
