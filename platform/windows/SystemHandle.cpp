#include "platform/windows/SystemHandle.h"

#include <windows.h>

namespace morvane {

bool SystemHandle::IsNone(void* handle) {
  return handle == nullptr || handle == INVALID_HANDLE_VALUE;
}

SystemHandle& SystemHandle::operator=(SystemHandle&& other) noexcept {
  if (this != &other) {
    Close();
    handle = std::exchange(other.handle, nullptr);
  }
  return *this;
}

bool SystemHandle::Close() { return !IsOpen() || CloseHandle(std::exchange(handle, nullptr)) != 0; }

}  // namespace morvane
