#include "platform/RecentFiles.h"

#include <algorithm>

#include "platform/Profile.h"

namespace {

constexpr const char* kSection = "Recent File List";

std::string KeyOf(std::size_t index) { return "File" + std::to_string(index + 1); }

}  // namespace

void RecentFiles::Load() {
  paths.clear();
  for (std::size_t i = 0; i < kMaxEntries; ++i) {
    std::string path = Service<Profile>::Get().GetString(kSection, KeyOf(i), "");
    if (!path.empty()) paths.push_back(std::move(path));
  }
}

void RecentFiles::Add(const std::string& path) {
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  if (paths.size() > kMaxEntries) paths.resize(kMaxEntries);
  Save();
}

void RecentFiles::Remove(const std::string& path) {
  if (std::erase(paths, path) != 0) Save();
}

void RecentFiles::Save() const {
  std::vector<Profile::Setting> entries;
  for (std::size_t i = 0; i < kMaxEntries; ++i) {
    entries.emplace_back(KeyOf(i), i < paths.size() ? paths[i] : "");
  }
  Service<Profile>::Get().Write(kSection, entries);
}
