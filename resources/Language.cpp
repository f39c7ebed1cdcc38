#include "resources/Language.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Profile.h"
#include "resources/TextLibrary.h"

namespace {

constexpr const char* kKey = "Language";
constexpr std::string_view kEnglish = "eng";
constexpr std::array<std::string_view, 4> kCodes = {kEnglish, "fra", "ger", "esp"};
constexpr std::size_t kMaxLetters = 3;
/// What the profile gives in place of a value that isn't there; too long to be one.
constexpr const char* kNoValue = "none";

// No language is settled yet when these are shown.
constexpr const char* kUnreadable =
    "Unable to read language information from registry. Setting language to English";
constexpr const char* kUnsupported =
    "Unsupported language found in registry. Setting language to English";

/// The code from the profile, or English after a message.
std::string ReadCode() {
  std::string code = Service<Profile>::Get().GetString("", kKey, kNoValue);
  if (code.size() > kMaxLetters) {
    ShowMessage(kUnreadable);
    return std::string(kEnglish);
  }
  if (std::ranges::find(kCodes, code) == kCodes.end()) {
    ShowMessage(kUnsupported);
    return std::string(kEnglish);
  }
  return code;
}

}  // namespace

void LoadLanguage() { LoadLanguage(FolderOf(ProgramPath())); }

void LoadLanguage(const std::string& folder) {
  static TextLibrary library;
  Service<TextSource>::Set(nullptr);
  const std::string code = ReadCode();
  if (code == kEnglish) return;
  const std::string name = "lang" + code + ".dll";
  std::string bytes;
  if (ReadWholeFile(folder + "/" + name, bytes).Ok() && library.Read(bytes)) {
    Service<TextSource>::Set(&library);
  } else {
    ShowMessage("Unable to load the language DLL '" + name + "'. Please re install Morvane.",
                MB_ICONHAND);
  }
}
