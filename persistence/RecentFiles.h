#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace morvane {

/// The files that were opened or saved last, newest first, kept in the profile, where every running
/// copy of the program adds its own.
class RecentFiles {
 public:
  static constexpr std::size_t kMaxEntries = 6;

  /// Takes the list over as it is stored now.
  void Load();
  /// Puts a path first in the list that is stored, and takes that over.
  void Add(const std::string& path);
  /// Takes a path out of the list that is stored, and takes that over.
  void Remove(const std::string& path);
  const std::vector<std::string>& Paths() const { return paths; }

 private:
  std::vector<std::string> paths;
};

}  // namespace morvane
