#include "shell/Preferences.h"

#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/PreferencesDlg.h"
#include "platform/Dialog.h"
#include "shell/Language.h"
#include "shell/SessionSettings.h"

namespace morvane {

namespace {

/// The place of the chosen language in the dialog, where the system's comes first; none for a
/// language whose library is missing.
std::int32_t IndexOfChosen(const std::vector<LanguageChoice>& languages) {
  const std::string code = ChosenLanguage();
  if (code.empty()) return 0;
  const auto found = std::ranges::find(languages, code, &LanguageChoice::code);
  if (found == languages.end()) return DialogControl::kNoItem;
  return static_cast<std::int32_t>(found - languages.begin()) + 1;
}

}  // namespace

void EditPreferences() {
  const std::vector<LanguageChoice> languages = AvailableLanguages();
  std::vector<std::string> names;
  for (const LanguageChoice& language : languages) names.push_back(language.name);
  const std::int32_t language = IndexOfChosen(languages);
  const auto reopen = static_cast<std::int32_t>(SessionSettings::Read());

  PreferencesDlg dialog(names);
  dialog.language = language;
  dialog.reopen = reopen;
  if (!dialog.DoModal()) return;
  // That of the system takes a value away that the program doesn't know.
  if (dialog.language != language || language == 0) {
    const auto place = static_cast<std::size_t>(dialog.language);
    ChooseLanguage(place == 0 ? std::string() : languages[place - 1].code);
  }
  if (dialog.reopen != reopen) SessionSettings::Write(static_cast<Reopen>(dialog.reopen));
}

}  // namespace morvane
