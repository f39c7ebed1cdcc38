#include "tests/faults/Faults.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

struct Armed {
  int callsLeft = 0;  ///< until the one that fails; 0 for none
  Faults::Files kind = Faults::Files::Writing;
  int error = 0;
  bool cut = false;
  bool readFailed = false;
  int requestsLeft = 0;
  std::size_t size = 0;
  bool fired = false;
};
Armed armed;

/// Counts a call, and tells whether it is the one that fails.
bool Fails(Faults::Files kind) {
  if (armed.callsLeft == 0 || armed.kind != kind || --armed.callsLeft > 0) return false;
  armed.fired = true;
  errno = armed.error;
  return true;
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

// The names are the linker's.
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode);
std::size_t __real_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file);
std::size_t __real_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file);
int __real_fflush(std::FILE* file);
int __real_fclose(std::FILE* file);
int __real_ferror(std::FILE* file);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
  const auto kind = mode[0] == 'r' ? Faults::Files::Reading : Faults::Files::Writing;
  return Fails(kind) ? nullptr : __real_fopen(path, mode);
}

std::size_t __wrap_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
  if (!Fails(Faults::Files::Writing)) return __real_fwrite(bytes, size, count, file);
  const std::size_t written = armed.cut ? __real_fwrite(bytes, size, count / 2, file) : 0;
  errno = armed.error;
  return written;
}

std::size_t __wrap_fread(void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
  if (!Fails(Faults::Files::Reading)) return __real_fread(bytes, size, count, file);
  armed.readFailed = true;
  errno = armed.error;
  return 0;
}

int __wrap_ferror(std::FILE* file) { return armed.readFailed ? 1 : __real_ferror(file); }

int __wrap_fflush(std::FILE* file) {
  return Fails(Faults::Files::Writing) ? EOF : __real_fflush(file);
}

int __wrap_fclose(std::FILE* file) {
  const int closed = __real_fclose(file);
  return Fails(Faults::Files::Writing) ? EOF : closed;
}
}

void* operator new(std::size_t size) {
  void* memory = IsRefused(size) ? nullptr : std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
