#include "platform/windows/StandardInput.h"

#include <array>
#include <cerrno>
#include <optional>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

/// Adds all that comes to `bytes`; 0 or the errno of a failure.
int ReadToEnd(HANDLE input, std::string& bytes) {
  std::array<char, 4096> chunk;
  DWORD got = 0;
  while (ReadFile(input, chunk.data(), chunk.size(), &got, nullptr) != 0 && got > 0) {
    bytes.append(chunk.data(), got);
    got = 0;
  }
  const DWORD error = got == 0 ? GetLastError() : ERROR_SUCCESS;
  return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF ? 0 : ErrnoOf(error);
}

}  // namespace

FileResult StandardInput::ReadAll(std::string& bytes) {
  static std::optional<std::string> former;
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  if (input == nullptr || input == INVALID_HANDLE_VALUE) return {FileResult::Stage::Open, EBADF};
  const bool isFile = GetFileType(input) == FILE_TYPE_DISK;
  if (isFile) SetFilePointer(input, 0, nullptr, FILE_BEGIN);
  if (!isFile && former) {
    bytes = *former;
    return {};
  }
  SetLastError(ERROR_SUCCESS);
  if (const int error = ReadToEnd(input, bytes)) return {FileResult::Stage::Transfer, error};
  if (!isFile) former = bytes;
  return {};
}

}  // namespace morvane
