#include "resources/InstallFolder.h"

#include <algorithm>
#include <cctype>

#include "platform/Files.h"

std::string GetInstallFolder() { return InstallFolderOf(ProgramPath()); }

std::string InstallFolderOf(std::string_view programPath) {
  std::string folder(programPath);
  std::transform(folder.begin(), folder.end(), folder.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  const std::size_t cut = std::min(folder.find("BIN/"), folder.find("BIN\\"));
  return cut == std::string::npos ? folder : folder.substr(0, cut);
}
