#include "dialogs/PreferencesDlg.h"

#include "platform/DataExchange.h"
#include "resources/Texts.h"

PreferencesDlg::PreferencesDlg(const std::vector<std::string>& languages) : CDialog("Preferences") {
  std::vector<std::string> names = {LoadText(IDS_SYSTEM_LANGUAGE)};
  names.insert(names.end(), languages.begin(), languages.end());
  DialogControl& choice = Add(DialogControl::Kind::Combo, IDC_LANGUAGE, "Language:");
  choice.SetItems(std::move(names));
  choice.suffix = LoadText(IDS_FROM_NEXT_START);
  Add(DialogControl::Kind::Combo, IDC_REOPEN, "Reopen charts:")
      .SetItems(
          {LoadText(IDS_REOPEN_NEVER), LoadText(IDS_REOPEN_CRASH), LoadText(IDS_REOPEN_ALWAYS)});
  AddButtons("OK", "Cancel");
}

void PreferencesDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Index(IDC_LANGUAGE, language);
  exchange.Index(IDC_REOPEN, reopen);
}
