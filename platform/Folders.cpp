#include "platform/Folders.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "platform/Files.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kRoot = "/";
constexpr const char* kMountTable = "/proc/self/mounts";
/// Where desktops put volumes.
constexpr std::array<std::string_view, 4> kVolumeFolders = {"/media/", "/run/media/", "/mnt/",
                                                            "/Volumes/"};

/// Kinds of file systems that no medium stands behind.
constexpr std::array<std::string_view, 6> kNoMedia = {"autofs", "overlay", "proc",
                                                      "ramfs",  "sysfs",   "tmpfs"};

class RealFolders : public Folders {
 public:
  std::vector<std::string> Drives() override {
    std::ifstream table(kMountTable);
    const std::string mounts{std::istreambuf_iterator<char>(table), {}};
    std::vector<std::string> drives = VolumesOf(mounts);
    drives.insert(drives.begin(), kRoot);
    return drives;
  }

  void Visit(const std::string& folder, const Visitor& visitor) override {
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
      std::error_code unknown;
      std::string name = it->path().filename().string();
      const bool isHidden = name.starts_with('.');
      if (!visitor({std::move(name), it->is_directory(unknown), isHidden})) return;
    }
  }

  bool IsFolder(const std::string& path) override {
    std::error_code error;
    return fs::is_directory(FindPath(path), error);
  }
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
