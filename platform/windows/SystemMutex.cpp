#include "platform/windows/SystemMutex.h"

#include <algorithm>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

constexpr DWORD kLockMilliseconds = 1000;
constexpr const char* kAllSessions = "Global\\";

}  // namespace

SystemMutex::SystemMutex(std::string name) {
  // The system keeps backslashes for itself.
  std::ranges::replace(name, '\\', '/');
  mutex = SystemHandle(CreateMutexW(nullptr, FALSE, Wide(kAllSessions + name).c_str()));
  const DWORD got =
      mutex.IsOpen() ? WaitForSingleObject(mutex.Get(), kLockMilliseconds) : WAIT_FAILED;
  // One whose process ended without giving it back is had as well.
  isMine = got == WAIT_OBJECT_0 || got == WAIT_ABANDONED;
}

SystemMutex::~SystemMutex() {
  if (isMine) ReleaseMutex(mutex.Get());
}

}  // namespace morvane
