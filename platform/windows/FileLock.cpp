#include "platform/FileLock.h"

#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFile.h"

namespace morvane {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Native(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

std::intptr_t Open(const std::string& path, DWORD access, DWORD way) {
  return reinterpret_cast<std::intptr_t>(CreateFileW(WidePath(path).c_str(), access, kShareAll,
                                                     nullptr, way, FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Takes a byte far behind the text, which others are to read. False if somebody has it.
bool Lock(std::intptr_t handle, DWORD how) {
  constexpr DWORD beyond = 0x40000000;
  OVERLAPPED from{};
  from.OffsetHigh = beyond;
  return LockFileEx(Native(handle), how | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &from) != 0;
}

/// The open file is still the one at the path: nobody took it away meanwhile.
bool IsStillAt(const std::string& path, std::intptr_t handle) {
  BY_HANDLE_FILE_INFORMATION open;
  WindowsFile::Facts present;
  return GetFileInformationByHandle(Native(handle), &open) != 0 &&
         WindowsFile::Ask(WidePath(path), present) == 0 &&
         present.volume == open.dwVolumeSerialNumber &&
         static_cast<DWORD>(present.number) == open.nFileIndexLow &&
         static_cast<DWORD>(present.number >> 32) == open.nFileIndexHigh;
}

}  // namespace

void FileLock::Release() {
  if (Held()) CloseHandle(Native(handle));
  handle = kNone;
}

FileLock FileLock::Take(const std::string& path) {
  FileLock lock;
  lock.path = path;
  constexpr int attempts = 3;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    lock.handle = Open(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    if (!lock.Held()) return lock;
    const bool isFree = Lock(lock.handle, LOCKFILE_EXCLUSIVE_LOCK);
    if (isFree && IsStillAt(path, lock.handle)) return lock;
    lock.Release();
    if (!isFree) return lock;
  }
  return lock;
}

bool FileLock::IsHeld(const std::string& path) {
  const std::intptr_t handle = Open(path, GENERIC_READ, OPEN_EXISTING);
  if (handle == kNone) return false;
  const bool isFree = Lock(handle, 0);
  CloseHandle(Native(handle));
  return !isFree;
}

void FileLock::Write(std::string_view text) const {
  if (!Held()) return;
  SetFilePointer(Native(handle), 0, nullptr, FILE_BEGIN);
  if (SetEndOfFile(Native(handle)) == 0) return;
  // What others read of it is a hint to the user; half a hint does no harm.
  DWORD written = 0;
  WriteFile(Native(handle), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

void FileLock::Remove() {
  if (!Held()) return;
  RemoveFile(path);
  Release();
}

}  // namespace morvane
