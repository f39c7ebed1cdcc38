#include "platform/PathSearch.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

constexpr char kSeparator = '/';

bool EqualsWithoutCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
  return std::ranges::equal(a, b, {}, lower, lower);
}

std::vector<std::string> PiecesOf(std::string_view path) {
  std::vector<std::string> pieces;
  while (!path.empty()) {
    const std::string_view piece = path.substr(0, path.find(kSeparator));
    path.remove_prefix(std::min(piece.size() + 1, path.size()));
    if (!piece.empty()) pieces.emplace_back(piece);
  }
  return pieces;
}

bool HasLostCase(std::span<const std::string> pieces) {
  return std::ranges::none_of(pieces, [](const std::string& piece) {
    return std::ranges::any_of(piece, [](unsigned char c) { return std::islower(c) != 0; });
  });
}

}  // namespace

PathSearch::PathSearch(const std::string& programPath, Lister namesIn, Test isWanted)
    : programFolders(PiecesOf(programPath)),
      namesIn(std::move(namesIn)),
      isWanted(std::move(isWanted)) {
  if (!programFolders.empty()) programFolders.pop_back();
}

std::string PathSearch::Find(const std::string& path) const {
  std::string unified = path;
  std::ranges::replace(unified, '\\', kSeparator);
  const bool isAbsolute = unified.starts_with(kSeparator);
  const std::vector<std::string> all = PiecesOf(unified);
  const Pieces pieces(all);
  const std::size_t own = isAbsolute ? CountOwn(pieces) : 0;
  const auto findFromOwn = [&] { return FindBelow(OwnFolder(own), pieces.subspan(own)); };
  // What belongs to the program is not taken from another folder, also if that is spelled so.
  const bool isInstalled =
      own != 0 && own + 1 >= programFolders.size() && HasLostCase(pieces.first(own));
  std::string found = isInstalled ? findFromOwn() : std::string();
  for (const std::string& asWritten : {path, unified}) {
    if (found.empty() && isWanted(asWritten)) found = asWritten;
  }
  if (found.empty() && own != 0 && !isInstalled) found = findFromOwn();
  if (found.empty()) found = FindBelow(isAbsolute ? "/" : "", pieces);
  if (found.empty()) return unified;
  const bool isClosed = found.ends_with(kSeparator);
  return unified.ends_with(kSeparator) && !isClosed ? found + kSeparator : found;
}

/// How many pieces lead the way to the program.
std::size_t PathSearch::CountOwn(Pieces pieces) const {
  std::size_t count = 0;
  while (count < std::min(pieces.size(), programFolders.size()) &&
         EqualsWithoutCase(pieces[count], programFolders[count])) {
    ++count;
  }
  return count;
}

std::string PathSearch::OwnFolder(std::size_t count) const {
  std::string folder(1, kSeparator);
  for (std::size_t i = 0; i < count; ++i) folder += programFolders[i] + kSeparator;
  return folder;
}

/// The first that is wanted of all that the rest of a path may mean in a folder, which is given
/// with its separator; the spelling of the path comes first. Empty if there is none.
std::string PathSearch::FindBelow(const std::string& folder, Pieces rest) const {
  if (rest.empty()) {
    const std::string bare = folder.substr(0, std::max<std::size_t>(folder.size(), 2) - 1);
    return isWanted(bare) ? bare : std::string();
  }
  const bool isLast = rest.size() == 1;
  const auto findAs = [&](const std::string& name) {
    const std::string path = folder + name;
    if (!isLast) return FindBelow(path + kSeparator, rest.subspan(1));
    return isWanted(path) ? path : std::string();
  };
  std::string found = findAs(rest.front());
  if (!found.empty()) return found;
  std::vector<std::string> names = namesIn(folder.empty() ? "." : folder);
  std::ranges::sort(names);
  for (const std::string& name : names) {
    if (name == rest.front() || !EqualsWithoutCase(name, rest.front())) continue;
    found = findAs(name);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace morvane
