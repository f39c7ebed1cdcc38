#pragma once

#include <string>

#include "platform/Dialog.h"

namespace morvane {

/// The editor of a state's entry and exit text.
class EntryExitEditor : public Dialog {
 public:
  enum ControlId : int { kEntryId = 100, kExitId };

  explicit EntryExitEditor(Syntax syntax = Syntax::Cpp);

  std::string title;  ///< begins the caption
  std::string entry;
  std::string exit;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
};

}  // namespace morvane
