#include "platform/Folders.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "platform/FileSystem.h"
#include "platform/Files.h"

namespace morvane {

namespace {

/// Where desktops put volumes.
constexpr std::array<std::string_view, 4> kVolumeFolders = {"/media/", "/run/media/", "/mnt/",
                                                            "/Volumes/"};

/// Kinds of file systems that no medium stands behind.
constexpr std::array<std::string_view, 6> kNoMedia = {"autofs", "overlay", "proc",
                                                      "ramfs",  "sysfs",   "tmpfs"};

class RealFolders : public Folders {
 public:
  std::vector<std::string> Drives() override { return SystemDrives(); }
  void Visit(const std::string& folder, const Visitor& visitor) override {
    VisitFolder(folder, visitor);
  }
  bool IsFolder(const std::string& path) override { return IsFolderAt(FindPath(path)); }
};

/// A blank, tab, line end or backslash stands in the table as a backslash and three octal digits.
std::string Unescape(std::string_view text) {
  constexpr std::size_t digits = 3;
  constexpr int base = 8;
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view code = text.substr(i + 1, digits);
    const bool isCode =
        text[i] == '\\' && code.size() == digits &&
        std::all_of(code.begin(), code.end(), [](char c) { return c >= '0' && c <= '7'; });
    if (!isCode) {
      plain += text[i];
      continue;
    }
    int value = 0;
    for (const char c : code) value = value * base + (c - '0');
    plain += static_cast<char>(value);
    i += digits;
  }
  return plain;
}

}  // namespace

Folders& Folders::Default() {
  static RealFolders service;
  return service;
}

std::vector<std::string> Folders::VolumesOf(std::string_view mounts) {
  std::vector<std::string> volumes;
  std::istringstream lines{std::string(mounts)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string device;
    std::string place;
    std::string kind;
    fields >> device >> place >> kind;
    const auto holdsPlace = [&](std::string_view folder) { return place.starts_with(folder); };
    const bool isVolume = std::any_of(kVolumeFolders.begin(), kVolumeFolders.end(), holdsPlace) &&
                          std::find(kNoMedia.begin(), kNoMedia.end(), kind) == kNoMedia.end();
    if (isVolume) volumes.push_back(Unescape(place));
  }
  std::sort(volumes.begin(), volumes.end());
  volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
  return volumes;
}

}  // namespace morvane
