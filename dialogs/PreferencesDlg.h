#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace morvane {

/// What holds for the whole program: its language, and what it opens again when it starts.
class PreferencesDlg : public Dialog {
 public:
  enum ControlId : int { kLanguageId = 100, kReopenId };

  /// Takes the languages that can be chosen, as each calls itself.
  explicit PreferencesDlg(const std::vector<std::string>& languages);

  std::int32_t language = 0;  ///< 0 is that of the system, and from 1 on those of the constructor
  std::int32_t reopen = 0;    ///< never, after a crash, always

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
};

}  // namespace morvane
