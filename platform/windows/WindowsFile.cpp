#include "platform/windows/WindowsFile.h"

#include <algorithm>
#include <cerrno>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr int kHalf = 32;

std::uint64_t Join(DWORD high, DWORD low) { return std::uint64_t{high} << kHalf | low; }

int ErrorOf(BOOL done) { return done != 0 ? 0 : LastErrno(); }

/// Opens a file or a folder for questions alone, which disturbs nobody.
SystemHandle OpenToAsk(const std::wstring& path) {
  return SystemHandle(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// Somebody else may have locked a part, which would show at the write that reaches it.
int LockAll(HANDLE file) {
  OVERLAPPED from{};
  constexpr DWORD most = MAXDWORD;
  if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, most, most / 2,
                 &from) != 0) {
    return 0;
  }
  const DWORD error = GetLastError();
  // Some network drives know no locks.
  return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? EBUSY : 0;
}

int FactsOf(HANDLE file, WindowsFile::Facts& facts) {
  BY_HANDLE_FILE_INFORMATION known;
  if (GetFileInformationByHandle(file, &known) == 0) return LastErrno();
  facts.volume = known.dwVolumeSerialNumber;
  facts.number = Join(known.nFileIndexHigh, known.nFileIndexLow);
  facts.size = static_cast<std::int64_t>(Join(known.nFileSizeHigh, known.nFileSizeLow));
  facts.time = static_cast<std::int64_t>(
      Join(known.ftLastWriteTime.dwHighDateTime, known.ftLastWriteTime.dwLowDateTime));
  facts.attributes = known.dwFileAttributes;
  facts.names = known.nNumberOfLinks;
  return 0;
}

}  // namespace

int WindowsFile::Open(const std::wstring& path, Use use) {
  const DWORD access = use == Use::Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  const DWORD share = use == Use::Read ? kShareAll : FILE_SHARE_READ;
  const DWORD way = use == Use::MakeNew ? CREATE_NEW : OPEN_EXISTING;
  // A folder is opened too, so that it can be told from a file that is refused.
  const DWORD kind = use == Use::Read ? FILE_FLAG_BACKUP_SEMANTICS : FILE_ATTRIBUTE_NORMAL;
  handle = SystemHandle(CreateFileW(path.c_str(), access, share, nullptr, way, kind, nullptr));
  if (!handle.IsOpen()) return LastErrno();
  const int error = use == Use::Overwrite ? LockAll(handle.Get()) : 0;
  if (error != 0) handle.Close();
  return error;
}

int WindowsFile::Ask(const std::wstring& path, Facts& facts) {
  const SystemHandle file = OpenToAsk(path);
  return file.IsOpen() ? FactsOf(file.Get(), facts) : LastErrno();
}

std::wstring WindowsFile::FinalPath(const std::wstring& path) {
  const SystemHandle file = OpenToAsk(path);
  if (!file.IsOpen()) return {};
  const DWORD length = GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring found(length, L'\0');
  found.resize(GetFinalPathNameByHandleW(file.Get(), found.data(), length, FILE_NAME_NORMALIZED));
  return found;
}

int WindowsFile::Ask(Facts& facts) const { return FactsOf(handle.Get(), facts); }

bool WindowsFile::IsOnDisk() const { return GetFileType(handle.Get()) == FILE_TYPE_DISK; }

int WindowsFile::Read(std::string& bytes) {
  constexpr std::size_t chunk = std::size_t{1} << 20;
  std::size_t length = bytes.size();
  DWORD got = 0;
  int error = 0;
  do {
    bytes.resize(length + chunk);
    error = ErrorOf(ReadFile(handle.Get(), bytes.data() + length, chunk, &got, nullptr));
    if (error == 0) length += got;
  } while (error == 0 && got > 0);
  bytes.resize(length);
  return error;
}

int WindowsFile::Reserve(std::int64_t length) {
  FILE_ALLOCATION_INFO room{};
  room.AllocationSize.QuadPart = length;
  // Where the system can't set it aside like that, a longer file takes it as well.
  if (SetFileInformationByHandle(handle.Get(), FileAllocationInfo, &room, sizeof(room)) == 0 &&
      LastErrno() == ENOSPC) {
    return ENOSPC;
  }
  // Where no disk could take so much, the system may say that there is no memory for it.
  const int error = Cut(length);
  return error == ENOMEM ? ENOSPC : error;
}

int WindowsFile::Write(std::string_view bytes, std::size_t& written) {
  constexpr std::size_t chunk = std::size_t{1} << 26;
  written = 0;
  while (written < bytes.size()) {
    const std::string_view rest = bytes.substr(written, chunk);
    DWORD count = 0;
    const BOOL done =
        WriteFile(handle.Get(), rest.data(), static_cast<DWORD>(rest.size()), &count, nullptr);
    if (done == 0) return LastErrno();
    if (count == 0) return EIO;
    written += count;
  }
  return 0;
}

int WindowsFile::Cut(std::int64_t length) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = length;
  return ErrorOf(SetFileInformationByHandle(handle.Get(), FileEndOfFileInfo, &end, sizeof(end)));
}

int WindowsFile::Sync() {
  const int error = ErrorOf(FlushFileBuffers(handle.Get()));
  return error == ENOSYS ? 0 : error;
}

int WindowsFile::SetTime(std::int64_t time) {
  const FILETIME written{static_cast<DWORD>(time), static_cast<DWORD>(time >> kHalf)};
  return ErrorOf(SetFileTime(handle.Get(), nullptr, nullptr, &written));
}

int WindowsFile::Close() { return handle.Close() ? 0 : LastErrno(); }

}  // namespace morvane
