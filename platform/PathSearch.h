#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// Finds what a path means when the case of its letters has been lost: as `GetInstallFolder` gives
/// it, or as it was written on a system that doesn't regard case.
class PathSearch {
 public:
  /// Gives the names in a folder, in any order; none if the folder can't be read.
  using Lister = std::function<std::vector<std::string>(const std::string& folder)>;
  /// Tells whether a path leads to what is looked for.
  using Test = std::function<bool(const std::string& path)>;

  PathSearch(const std::string& programPath, Lister namesIn, Test isWanted);

  /// The path as the file system knows it; the path itself, with "/" between the pieces, if it
  /// leads to nothing that is wanted. The folders that the path has in common with the program's
  /// own are taken as these, which need not be readable: before all others where the path leads to
  /// the install folder in capitals, else behind the path as it is written.
  std::string Find(const std::string& path) const;

 private:
  using Pieces = std::span<const std::string>;

  std::size_t CountOwn(Pieces pieces) const;
  std::string OwnFolder(std::size_t count) const;
  std::string FindBelow(const std::string& folder, Pieces rest) const;

  std::vector<std::string> programFolders;
  Lister namesIn;
  Test isWanted;
};

}  // namespace morvane
