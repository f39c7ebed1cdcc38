#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <system_error>

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/WholeFile.h"

namespace morvane {

namespace fs = std::filesystem;

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
  return IsFileAt(path) && fs::file_size(path, error) == 0 && !error;
}

FileResult WriteWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Write(bytes);
}

FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Replace(bytes);
}

std::string FullPath(const std::string& path) {
  std::error_code error;
  const fs::path full = fs::weakly_canonical(path, error);
  return error ? path : full.string();
}

std::string ProgramPath() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? "" : program.string();
}

}  // namespace morvane
