#include "platform/Files.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/PathSearch.h"
#include "platform/PosixFile.h"
#include "platform/SystemError.h"
#include "platform/WholeFile.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSeparators = "/\\";

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

/// The names in a folder; none if it can't be read.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    names.push_back(it->path().filename().string());
  }
  return names;
}

}  // namespace

std::string FileResult::ErrorText() const { return SystemErrorText(error); }

FileResult ReadWholeFile(const std::string& path, std::string& bytes) {
  bytes.clear();
  PosixFile file;
  // A pipe may have nobody at its other end.
  if (const int error = file.Open(path, O_RDONLY | O_NONBLOCK)) {
    return {FileResult::Stage::Open, error};
  }
  struct stat status {};
  if (const int error = file.Status(status)) return {FileResult::Stage::Open, error};
  if (S_ISDIR(status.st_mode)) return {FileResult::Stage::Open, EISDIR};
  // A pipe or a device may have no end.
  if (!S_ISREG(status.st_mode)) return {FileResult::Stage::Open, EINVAL};
  if (const int error = file.Read(bytes)) return {FileResult::Stage::Transfer, error};
  return {};
}

bool IsEmptyFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && fs::file_size(path, error) == 0 && !error;
}

FileResult WriteWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Write(bytes);
}

FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Replace(bytes);
}

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

std::string FullPath(const std::string& path) {
  std::error_code error;
  const fs::path full = fs::weakly_canonical(path, error);
  return error ? path : full.string();
}

std::string FindPath(const std::string& path) {
  return FindPath(path, [](const std::string& found) {
    std::error_code error;
    return fs::exists(found, error);
  });
}

std::string FindPath(const std::string& path,
                     const std::function<bool(const std::string& path)>& isWanted) {
  const PathSearch search(ProgramPath(), NamesIn, isWanted);
  return search.Find(path);
}

std::string ProgramPath() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? "" : program.string();
}

}  // namespace morvane
