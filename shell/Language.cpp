#include "shell/Language.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Profile.h"
#include "platform/ThisProcess.h"
#include "platform/Wording.h"
#include "resources/TextLibrary.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

struct Language {
  std::string_view code;
  std::string_view locale;  ///< the language of a locale
  std::string_view name;
};

constexpr Language kEnglish = {"eng", "en", "English"};
constexpr std::array<Language, 5> kLanguages = {
    kEnglish,
    {"fra", "fr", "Fran\xC3\xA7\x61is"},
    {"ger", "de", "Deutsch"},
    {"esp", "es", "Espa\xC3\xB1ol"},
    // Nihongo
    {"jpn", "ja", "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E"}};
constexpr const char* kKey = "Language";
constexpr std::size_t kMaxLetters = 3;

// No language is settled yet when these are shown.
constexpr const char* kUnreadable =
    "Unable to read language information from registry. Setting language to English";
constexpr const char* kUnsupported =
    "Unsupported language found in registry. Setting language to English";

bool IsKnown(std::string_view code) {
  return std::ranges::find(kLanguages, code, &Language::code) != kLanguages.end();
}

/// The code from the profile, or English after a message; nothing if the profile leaves the choice
/// to the system.
std::optional<std::string> StoredCode() {
  Profile& profile = Service<Profile>::Get();
  std::optional<std::string> code = profile.Find("", kKey);
  if (code ? code->size() > kMaxLetters : profile.IsDamaged("", kKey)) {
    ShowMessage(kUnreadable);
    return std::string(kEnglish.code);
  }
  if (code && !IsKnown(*code)) {
    ShowMessage(kUnsupported);
    return std::string(kEnglish.code);
  }
  return code;
}

/// The code for the locale in which the system talks to the user; English for one that the program
/// doesn't speak.
std::string SystemCode() {
  const std::string locale = SystemLocale();
  // Such as "de_AT.UTF-8@euro"
  const std::string language = locale.substr(0, locale.find_first_of("_.@"));
  const auto found = std::ranges::find(kLanguages, language, &Language::locale);
  return std::string(found != kLanguages.end() ? found->code : kEnglish.code);
}

std::string NameOfLibrary(std::string_view code) { return "lang" + std::string(code) + ".dll"; }

bool ReadLibrary(const std::string& folder, std::string_view code, TextLibrary& library) {
  std::string bytes;
  return ReadWholeFile(folder + "/" + NameOfLibrary(code), bytes).Ok() && library.Read(bytes);
}

std::string FolderOfLibraries() { return FolderOf(ProgramPath()); }

}  // namespace

void LoadLanguage() { LoadLanguage(FolderOfLibraries()); }

void LoadLanguage(const std::string& folder) {
  static TextLibrary library;
  TextSource::Use(nullptr);
  SetTranslator(Translate);
  const std::optional<std::string> stored = StoredCode();
  const std::string code = stored ? *stored : SystemCode();
  if (code == kEnglish.code) return;
  if (ReadLibrary(folder, code, library)) {
    TextSource::Use(&library);
  } else if (stored) {
    ShowMessage(
        "Unable to load the language DLL '" + NameOfLibrary(code) + "'. Please re install Morvane.",
        MB_ICONHAND);
  }
}

std::vector<LanguageChoice> AvailableLanguages() { return AvailableLanguages(FolderOfLibraries()); }

std::vector<LanguageChoice> AvailableLanguages(const std::string& folder) {
  std::vector<LanguageChoice> choices;
  for (const Language& language : kLanguages) {
    TextLibrary library;
    if (language.code == kEnglish.code || ReadLibrary(folder, language.code, library)) {
      choices.push_back({std::string(language.code), std::string(language.name)});
    }
  }
  return choices;
}

std::string ChosenLanguage() {
  std::string code = Service<Profile>::Get().GetString("", kKey, "");
  return IsKnown(code) ? code : std::string();
}

void ChooseLanguage(const std::string& code) {
  Service<Profile>::Get().Change("", [&](Profile::Section& values) {
    if (code.empty()) {
      values.erase(kKey);
    } else {
      values[kKey] = code;
    }
  });
}

}  // namespace morvane
