#include "platform/posix/PosixFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace morvane {

namespace {

int ErrorOf(int result) { return result < 0 ? errno : 0; }

/// Repeats a call that a signal has interrupted.
template <class Call>
auto Complete(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// A limit of the process would stop the writing though the space is there.
bool IsBeyondLimit(off_t length) {
  rlimit limit{};
  return getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
         static_cast<rlim_t>(length) > limit.rlim_cur;
}

int Allocate(int handle, off_t from, off_t length) {
  int error = EINTR;
  while (error == EINTR) error = posix_fallocate(handle, from, length);
  return error;
}

}  // namespace

PosixFile::~PosixFile() { Close(); }

int PosixFile::Open(const std::string& path, int flags, mode_t mode) {
  Close();
  // A terminal that is written to does not become that of the process.
  const int all = flags | O_CLOEXEC | O_NOCTTY;
  handle = Complete([&] { return open(path.c_str(), all, mode); });
  return ErrorOf(handle);
}

int PosixFile::Status(struct stat& status) const { return ErrorOf(fstat(handle, &status)); }

int PosixFile::Read(std::string& bytes) {
  constexpr std::size_t chunk = std::size_t{1} << 20;
  std::size_t length = bytes.size();
  ssize_t got = 0;
  do {
    bytes.resize(length + chunk);
    got = Complete([&] { return read(handle, bytes.data() + length, chunk); });
    if (got > 0) length += static_cast<std::size_t>(got);
  } while (got > 0);
  const int error = ErrorOf(static_cast<int>(got));
  bytes.resize(length);
  return error;
}

int PosixFile::Reserve(off_t oldLength, off_t length) {
  if (IsBeyondLimit(length)) return EFBIG;
  int error = Allocate(handle, 0, length);
  // For a file system that can't do it the C library touches each block instead. Those that the
  // file has it would have to read, which it can't here.
  if (error == EBADF && length > oldLength) error = Allocate(handle, oldLength, length - oldLength);
  return error == EBADF || error == EINVAL || error == ENOSYS ? EOPNOTSUPP : error;
}

int PosixFile::Write(std::string_view bytes, std::size_t& written) {
  written = 0;
  while (written < bytes.size()) {
    const std::string_view rest = bytes.substr(written);
    const ssize_t count = Complete([&] { return write(handle, rest.data(), rest.size()); });
    if (count < 0) return errno;
    if (count == 0) return EIO;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

int PosixFile::Cut(off_t length) {
  return ErrorOf(Complete([&] { return ftruncate(handle, length); }));
}

int PosixFile::Sync() {
  const int error = ErrorOf(Complete([&] { return fsync(handle); }));
  return error == EINVAL || error == EOPNOTSUPP || error == ENOSYS ? 0 : error;
}

int PosixFile::SetOwner(uid_t owner, gid_t group) { return ErrorOf(fchown(handle, owner, group)); }

int PosixFile::SetMode(mode_t mode) { return ErrorOf(fchmod(handle, mode)); }

int PosixFile::SetTime(const timespec& time) {
  const timespec times[] = {{0, UTIME_OMIT}, time};  // of the last access, and of the last change
  return ErrorOf(futimens(handle, times));
}

int PosixFile::Close() {
  if (handle == kNone) return 0;
  const int result = close(handle);
  handle = kNone;
  // An interrupted close has closed.
  return result < 0 && errno != EINTR ? errno : 0;
}

}  // namespace morvane
