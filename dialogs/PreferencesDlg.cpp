#include "dialogs/PreferencesDlg.h"

#include "platform/FieldExchange.h"
#include "resources/Texts.h"

namespace morvane {

PreferencesDlg::PreferencesDlg(const std::vector<std::string>& languages) : Dialog("Preferences") {
  std::vector<std::string> names = {LoadText(IDS_SYSTEM_LANGUAGE)};
  names.insert(names.end(), languages.begin(), languages.end());
  DialogControl& choice = Add(DialogControl::Kind::Combo, kLanguageId, "&Language:");
  choice.SetItems(std::move(names));
  choice.suffix = LoadText(IDS_FROM_NEXT_START);
  Add(DialogControl::Kind::Combo, kReopenId, "&Reopen charts:")
      .SetItems(
          {LoadText(IDS_REOPEN_NEVER), LoadText(IDS_REOPEN_CRASH), LoadText(IDS_REOPEN_ALWAYS)});
  AddButtons("OK", "Cancel");
}

void PreferencesDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Index(kLanguageId, language);
  exchange.Index(kReopenId, reopen);
}

}  // namespace morvane
