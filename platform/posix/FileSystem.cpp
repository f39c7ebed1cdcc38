#include "platform/FileSystem.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kRoot = "/";
constexpr const char* kMountTable = "/proc/self/mounts";

}  // namespace

bool IsThere(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

bool IsFileAt(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool IsFolderAt(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool IsProgramAt(const std::string& path) {
  return IsFileAt(path) && access(path.c_str(), X_OK) == 0;
}

bool IsAbsolute(const std::string& path) { return path.starts_with('/'); }

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const fs::path full = fs::absolute(path, error);
  return error ? path : full.string();
}

void VisitFolder(const std::string& folder, const Folders::Visitor& visitor) {
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code unknown;
    std::string name = it->path().filename().string();
    const bool isHidden = name.starts_with('.');
    if (!visitor({std::move(name), it->is_directory(unknown), isHidden})) return;
  }
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    names.push_back(it->path().filename().string());
  }
  return names;
}

std::vector<std::string> SystemDrives() {
  std::ifstream table(kMountTable);
  const std::string mounts{std::istreambuf_iterator<char>(table), {}};
  std::vector<std::string> drives = Folders::VolumesOf(mounts);
  drives.insert(drives.begin(), kRoot);
  return drives;
}

bool MakePrivateFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  fs::permissions(folder, fs::perms::owner_all, error);
  return access(folder.c_str(), W_OK | X_OK) == 0;
}

bool RemoveFile(const std::string& path) { return unlink(path.c_str()) == 0; }

std::string UserStateFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') return state;
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return {};
  return std::string(home) + "/.local/state";
}

}  // namespace morvane
