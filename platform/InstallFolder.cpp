#include "platform/InstallFolder.h"

#include <algorithm>
#include <cctype>

#include "platform/Files.h"

namespace morvane {

namespace {

constexpr std::string_view kSeparators = "/\\";
constexpr std::string_view kPrograms = "BIN";

}  // namespace

std::string GetInstallFolder() { return InstallFolderOf(ProgramPath()); }

std::string InstallFolderOf(std::string_view programPath) {
  std::string folder(programPath);
  std::transform(folder.begin(), folder.end(), folder.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  // The program's own name is no folder.
  std::size_t end = folder.find_last_of(kSeparators);
  while (end != std::string::npos) {
    const std::size_t before = end == 0 ? end : folder.find_last_of(kSeparators, end - 1);
    const std::size_t begin = end == 0 || before == std::string::npos ? 0 : before + 1;
    if (std::string_view(folder).substr(begin, end - begin) == kPrograms) {
      return folder.substr(0, begin);
    }
    end = begin == 0 ? std::string::npos : begin - 1;
  }
  return folder;
}

}  // namespace morvane
