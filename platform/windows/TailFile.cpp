#include "platform/TailFile.h"

#include <cerrno>
#include <windows.h>

#include "platform/SystemError.h"
#include "platform/ThisProcess.h"
#include "platform/windows/WideText.h"

namespace morvane {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Native(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

/// A handle of its own on standard input
HANDLE StandardInput() {
  HANDLE input = INVALID_HANDLE_VALUE;
  const HANDLE self = GetCurrentProcess();
  return DuplicateHandle(self, GetStdHandle(STD_INPUT_HANDLE), self, &input, 0, FALSE,
                         DUPLICATE_SAME_ACCESS) != 0
             ? input
             : INVALID_HANDLE_VALUE;
}

bool IsStandardInput(const std::string& path) { return path == "-" || path == StandardInputPath(); }

HANDLE Open(const std::string& path) {
  if (IsStandardInput(path)) return StandardInput();
  const HANDLE file = CreateFileW(WidePath(path).c_str(), GENERIC_READ, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  // A pipe that is empty says so.
  DWORD mode = PIPE_READMODE_BYTE | PIPE_NOWAIT;
  if (file != INVALID_HANDLE_VALUE && GetFileType(file) == FILE_TYPE_PIPE) {
    SetNamedPipeHandleState(file, &mode, nullptr, nullptr);
  }
  return file;
}

bool IsFolder(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION about;
  return GetFileInformationByHandle(file, &about) != 0 &&
         (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The end of who writes is no fault of who reads.
bool IsEnd(DWORD error) {
  return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF || error == ERROR_NO_DATA ||
         error == ERROR_PIPE_NOT_CONNECTED;
}

}  // namespace

TailFile::TailFile(const std::string& path) : file(reinterpret_cast<std::intptr_t>(Open(path))) {
  if (!IsOpen()) {
    reason = SystemErrorText(LastErrno());
  } else if (IsFolder(Native(file))) {
    reason = SystemErrorText(EISDIR);
    CloseHandle(Native(file));
    file = kNone;
  }
}

TailFile::~TailFile() {
  if (IsOpen()) CloseHandle(Native(file));
}

bool TailFile::Read(std::string& bytes, std::size_t most) {
  if (!IsOpen()) return false;
  const std::size_t before = bytes.size();
  bytes.resize(before + most);
  DWORD count = 0;
  const bool done =
      ReadFile(Native(file), bytes.data() + before, static_cast<DWORD>(most), &count, nullptr) != 0;
  const DWORD error = done ? ERROR_SUCCESS : GetLastError();
  bytes.resize(before + (done ? count : 0));
  if (!done && !IsEnd(error)) reason = SystemErrorText(ErrnoOf(error));
  return done && count > 0;
}

}  // namespace morvane
