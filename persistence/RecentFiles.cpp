#include "persistence/RecentFiles.h"

#include <algorithm>

#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Recent File List";

std::string KeyOf(std::size_t index) { return "File" + std::to_string(index + 1); }

using Section = Profile::Section;

std::vector<std::string> PathsOf(const Section& section) {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < RecentFiles::kMaxEntries; ++i) {
    const auto found = section.find(KeyOf(i));
    if (found != section.end() && !found->second.empty()) paths.push_back(found->second);
  }
  return paths;
}

void Put(const std::vector<std::string>& paths, Section& section) {
  for (std::size_t i = 0; i < RecentFiles::kMaxEntries; ++i) {
    section[KeyOf(i)] = i < paths.size() ? paths[i] : "";
  }
}

}  // namespace

void RecentFiles::Load() {
  Profile& profile = Service<Profile>::Get();
  profile.Refresh();
  Section section;
  for (std::size_t i = 0; i < kMaxEntries; ++i) {
    section[KeyOf(i)] = profile.GetString(kSection, KeyOf(i), "");
  }
  paths = PathsOf(section);
}

void RecentFiles::Add(const std::string& path) {
  // The list is whole before it is stored: a message that it cannot be lets the menus show it.
  Service<Profile>::Get().Change(kSection, [&](Section& section) {
    paths = PathsOf(section);
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    if (paths.size() > kMaxEntries) paths.resize(kMaxEntries);
    Put(paths, section);
  });
}

void RecentFiles::Remove(const std::string& path) {
  Service<Profile>::Get().Change(kSection, [&](Section& section) {
    paths = PathsOf(section);
    if (std::erase(paths, path) != 0) Put(paths, section);
  });
}

}  // namespace morvane
