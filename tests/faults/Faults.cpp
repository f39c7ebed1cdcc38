#include "tests/faults/Faults.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace morvane {

namespace {

struct Armed {
  int callsLeft = 0;  ///< until the one that fails; 0 for none
  Faults::Files kind = Faults::Files::Writing;
  int error = 0;
  bool cut = false;
  bool kills = false;
  int requestsLeft = 0;
  std::size_t size = 0;
  bool fired = false;
};
Armed armed;
/// Which of the open files were opened to be read.
std::array<bool, 1024> isRead{};

bool IsReached(Faults::Files kind) {
  if (armed.callsLeft == 0 || armed.kind != kind || --armed.callsLeft > 0) return false;
  armed.fired = true;
  return true;
}

/// Counts a call, and tells whether it is the one that fails.
bool Fails(Faults::Files kind) {
  if (!IsReached(kind)) return false;
  if (armed.kills) std::raise(SIGKILL);
  errno = armed.error;
  return true;
}

Faults::Files KindOf(int handle) {
  const auto index = static_cast<std::size_t>(handle);
  return index < isRead.size() && isRead[index] ? Faults::Files::Reading : Faults::Files::Writing;
}

bool IsRefused(std::size_t size) {
  if (armed.requestsLeft == 0 || size < armed.size || --armed.requestsLeft > 0) return false;
  armed.fired = true;
  return true;
}

}  // namespace

void Faults::FailFileCall(Files kind, int call, int error, bool cut) {
  armed = {};
  armed.callsLeft = call;
  armed.kind = kind;
  armed.error = error;
  armed.cut = cut;
}

void Faults::FailMemory(int request, std::size_t size) {
  armed = {};
  armed.requestsLeft = request;
  armed.size = size;
}

bool Faults::Disarm() {
  const bool fired = armed.fired;
  armed = {};
  return fired;
}

Faults::End Faults::KillAtFileCall(int call, bool cut, const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    FailFileCall(Files::Writing, call, 0, cut);
    armed.kills = true;
    try {
      work();
    } catch (...) {
      _exit(EXIT_FAILURE);
    }
    _exit(EXIT_SUCCESS);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return End::Failed;
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return End::Killed;
  const bool isDone = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
  return isDone ? End::RanThrough : End::Failed;
}

// The names are the linker's.
extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_fstat(int handle, struct stat* status);
int __real_lstat(const char* path, struct stat* status);
ssize_t __real_readlink(const char* path, char* link, std::size_t size);
ssize_t __real_read(int handle, void* bytes, std::size_t size);
ssize_t __real_write(int handle, const void* bytes, std::size_t size);
int __real_posix_fallocate(int handle, off_t from, off_t length);
int __real_ftruncate(int handle, off_t length);
int __real_fsync(int handle);
int __real_fchown(int handle, uid_t owner, gid_t group);
int __real_fchmod(int handle, mode_t mode);
int __real_close(int handle);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const bool reads = (flags & O_ACCMODE) == O_RDONLY && (flags & O_DIRECTORY) == 0;
  if (Fails(reads ? Faults::Files::Reading : Faults::Files::Writing)) return -1;
  const int handle = __real_open(path, flags, mode);
  const auto index = static_cast<std::size_t>(handle);
  if (handle >= 0 && index < isRead.size()) isRead[index] = reads;
  return handle;
}

int __wrap_fstat(int handle, struct stat* status) {
  return Fails(KindOf(handle)) ? -1 : __real_fstat(handle, status);
}

int __wrap_lstat(const char* path, struct stat* status) {
  return Fails(Faults::Files::Writing) ? -1 : __real_lstat(path, status);
}

ssize_t __wrap_readlink(const char* path, char* link, std::size_t size) {
  return Fails(Faults::Files::Writing) ? -1 : __real_readlink(path, link, size);
}

ssize_t __wrap_read(int handle, void* bytes, std::size_t size) {
  return Fails(Faults::Files::Reading) ? -1 : __real_read(handle, bytes, size);
}

/// The system tells of a write that is cut short by its count, and of the failure at the next one.
ssize_t __wrap_write(int handle, const void* bytes, std::size_t size) {
  const bool isCut = armed.callsLeft == 1 && armed.kind == Faults::Files::Writing && armed.cut;
  if (isCut && size > 1) {
    armed.cut = false;
    const ssize_t written = __real_write(handle, bytes, size / 2);
    if (armed.kills) Fails(Faults::Files::Writing);
    return written;
  }
  return Fails(Faults::Files::Writing) ? -1 : __real_write(handle, bytes, size);
}

/// This one gives its error.
int __wrap_posix_fallocate(int handle, off_t from, off_t length) {
  if (!Fails(Faults::Files::Writing)) return __real_posix_fallocate(handle, from, length);
  // A part of the space may have been there.
  if (armed.cut) static_cast<void>(__real_posix_fallocate(handle, from, length / 2 + 1));
  return armed.error;
}

int __wrap_ftruncate(int handle, off_t length) {
  return Fails(Faults::Files::Writing) ? -1 : __real_ftruncate(handle, length);
}

int __wrap_fsync(int handle) { return Fails(Faults::Files::Writing) ? -1 : __real_fsync(handle); }

int __wrap_fchown(int handle, uid_t owner, gid_t group) {
  return Fails(Faults::Files::Writing) ? -1 : __real_fchown(handle, owner, group);
}

int __wrap_fchmod(int handle, mode_t mode) {
  return Fails(Faults::Files::Writing) ? -1 : __real_fchmod(handle, mode);
}

/// The file is closed in any case.
int __wrap_close(int handle) {
  const bool fails = Fails(KindOf(handle));
  const int closed = __real_close(handle);
  if (fails) errno = armed.error;
  return fails ? -1 : closed;
}

int __wrap_rename(const char* from, const char* to) {
  return Fails(Faults::Files::Writing) ? -1 : __real_rename(from, to);
}

int __wrap_unlink(const char* path) {
  return Fails(Faults::Files::Writing) ? -1 : __real_unlink(path);
}
}

bool IsMemoryRefused(std::size_t size) { return IsRefused(size); }

}  // namespace morvane

void* operator new(std::size_t size) {
  void* memory = morvane::IsMemoryRefused(size) ? nullptr : std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
