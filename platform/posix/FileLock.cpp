#include "platform/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvane {

namespace {

constexpr mode_t kOwnerOnly = 0600;

int Number(std::intptr_t handle) { return static_cast<int>(handle); }

/// The file behind a descriptor is still the one at the path: nobody took it away meanwhile.
bool IsStillAt(const std::string& path, int descriptor) {
  struct stat open {};
  struct stat present {};
  return fstat(descriptor, &open) == 0 && stat(path.c_str(), &present) == 0 &&
         open.st_dev == present.st_dev && open.st_ino == present.st_ino;
}

}  // namespace

void FileLock::Release() {
  if (Held()) close(Number(handle));
  handle = kNone;
}

FileLock FileLock::Take(const std::string& path) {
  FileLock lock;
  lock.path = path;
  constexpr int attempts = 3;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    lock.handle = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerOnly);
    if (!lock.Held()) return lock;
    if (flock(Number(lock.handle), LOCK_EX | LOCK_NB) == 0 &&
        IsStillAt(path, Number(lock.handle))) {
      return lock;
    }
    const bool isOthers = errno == EWOULDBLOCK;
    lock.Release();
    if (isOthers) return lock;
  }
  return lock;
}

bool FileLock::IsHeld(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool held = flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(descriptor);
  return held;
}

void FileLock::Write(std::string_view text) const {
  if (!Held() || ftruncate(Number(handle), 0) != 0) return;
  // What others read of it is a hint to the user; half a hint does no harm.
  static_cast<void>(pwrite(Number(handle), text.data(), text.size(), 0) < 0);
}

void FileLock::Remove() {
  if (!Held()) return;
  unlink(path.c_str());
  Release();
}

}  // namespace morvane
