#include "platform/FileLock.h"

#include <utility>

namespace morvane {

FileLock::~FileLock() { Release(); }

FileLock::FileLock(FileLock&& other) noexcept
    : path(std::move(other.path)), handle(std::exchange(other.handle, kNone)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  if (this == &other) return *this;
  Release();
  path = std::move(other.path);
  handle = std::exchange(other.handle, kNone);
  return *this;
}

}  // namespace morvane
