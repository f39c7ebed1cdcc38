#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The files that were opened or saved last, newest first, kept in the profile.
class RecentFiles {
 public:
  static constexpr std::size_t kMaxEntries = 6;

  void Load();
  /// Puts a path first and writes the list.
  void Add(const std::string& path);
  void Remove(const std::string& path);
  const std::vector<std::string>& Paths() const { return paths; }

 private:
  void Save() const;
  std::vector<std::string> paths;
};
