#include "platform/Files.h"

#include <algorithm>
#include <cctype>

#include "platform/FileSystem.h"
#include "platform/PathSearch.h"
#include "platform/SystemError.h"

namespace morvane {

namespace {

constexpr std::string_view kSeparators = "/\\";

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

}  // namespace

std::string FileResult::ErrorText() const { return SystemErrorText(error); }

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  return std::string(separator == std::string_view::npos ? "" : path.substr(0, separator));
}

std::string ExtensionOf(std::string_view path) {
  const std::string name = FileNameOf(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? "" : Lower(std::string_view(name).substr(dot));
}

std::string FindPath(const std::string& path) { return FindPath(path, IsThere); }

std::string FindPath(const std::string& path,
                     const std::function<bool(const std::string& path)>& isWanted) {
  const PathSearch search(ProgramPath(), NamesIn, isWanted);
  return search.Find(path);
}

}  // namespace morvane
