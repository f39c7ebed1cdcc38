#include "platform/Files.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSeparators = "/\\";

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

/// The entry of a folder with that name, whatever its case; empty if there is none.
fs::path FindEntry(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  const std::string wanted = Lower(name);
  for (fs::directory_iterator it(folder.empty() ? "." : folder, error), end; !error && it != end;
       it.increment(error)) {
    if (Lower(it->path().filename().string()) == wanted) return folder / it->path().filename();
  }
  return {};
}

}  // namespace

std::string FileResult::ErrorText() const { return std::strerror(error); }

FileResult ReadWholeFile(const std::string& path, std::string& bytes) {
  bytes.clear();
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::is_directory(status)) return {FileResult::Stage::Open, EISDIR};
  // A pipe or a device may have no end.
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    return {FileResult::Stage::Open, EINVAL};
  }
  const File file(std::fopen(path.c_str(), "rb"));
  if (!file) return {FileResult::Stage::Open, errno};
  constexpr std::size_t chunk = std::size_t{1} << 20;
  std::size_t length = 0;
  do {
    bytes.resize(length + chunk);
    const std::size_t got = std::fread(bytes.data() + length, 1, chunk, file.get());
    length += got;
    if (got == 0) break;
  } while (true);
  const int failure = std::ferror(file.get()) != 0 ? errno : 0;
  bytes.resize(length);
  if (failure != 0) return {FileResult::Stage::Transfer, failure};
  return {};
}

bool IsEmptyFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && fs::file_size(path, error) == 0 && !error;
}

FileResult WriteWholeFile(const std::string& path, std::string_view bytes) {
  File file(std::fopen(path.c_str(), "wb"));
  if (!file) return {FileResult::Stage::Open, errno};
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  if (!written || std::fflush(file.get()) != 0) return {FileResult::Stage::Transfer, errno};
  if (std::fclose(file.release()) != 0) return {FileResult::Stage::Transfer, errno};
  return {};
}

FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) return WriteWholeFile(path, bytes);
  const std::string target = fs::exists(status) ? FullPath(path) : path;
  const std::string beside = target + ".new";
  FileResult result = WriteWholeFile(beside, bytes);
  if (result.Ok()) {
    fs::rename(beside, target, error);
    if (error) result = {FileResult::Stage::Open, error.value()};
  }
  if (!result.Ok()) fs::remove(beside, error);
  return result;
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
  std::error_code error;
  if (fs::exists(path, error)) return path;
  std::string unified = path;
  std::replace(unified.begin(), unified.end(), '\\', '/');
  fs::path found;
  for (const fs::path& piece : fs::path(unified)) {
    if (piece.empty() || piece == "/") {
      found /= piece;
      continue;
    }
    found = FindEntry(found, piece.string());
    if (found.empty()) return unified;
  }
  return found.string();
}

std::string ProgramPath() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? "" : program.string();
}
