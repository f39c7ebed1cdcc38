#include "platform/ThisProcess.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Its declarations stand on those of the one above.
#include <shellapi.h>

#include "platform/windows/WideText.h"

namespace morvane {

long ProcessNumber() { return static_cast<long>(GetCurrentProcessId()); }

std::vector<std::string> ProgramArguments(int count, const char* const* arguments) {
  // What `main` was given lacks the letters outside the code page of the system.
  int words = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &words);
  if (wide == nullptr) return {arguments + (count > 0 ? 1 : 0), arguments + count};
  std::vector<std::string> texts;
  for (int i = 1; i < words; ++i) texts.push_back(Narrow(wide[i]));
  LocalFree(wide);
  return texts;
}

void UseBytesInStandardStreams() {
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

// No file can have such a name.
std::string StandardInputPath() { return "<stdin>"; }

std::string DesktopLocale() {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
  const LCID language = MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT);
  LCIDToLocaleName(language, name.data(), static_cast<int>(name.size()), 0);
  std::string locale = Narrow(name.data());
  // As elsewhere: "de_AT", where the system says "de-AT"
  if (const std::size_t at = locale.find('-'); at != std::string::npos) locale[at] = '_';
  return locale;
}

}  // namespace morvane
