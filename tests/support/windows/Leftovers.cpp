#include "tests/support/Leftovers.h"

#include <windows.h>
// Its declarations stand on those of the one above.
#include <tlhelp32.h>

namespace morvane {

namespace {

std::ptrdiff_t CountThreads() {
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  std::ptrdiff_t count = 0;
  for (BOOL found = Thread32First(all, &thread); found != 0; found = Thread32Next(all, &thread)) {
    if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++count;
  }
  CloseHandle(all);
  return count;
}

std::ptrdiff_t CountHandles() {
  DWORD count = 0;
  GetProcessHandleCount(GetCurrentProcess(), &count);
  return static_cast<std::ptrdiff_t>(count);
}

}  // namespace

bool IsAlive(long process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
  if (handle == nullptr) return false;
  const bool isAlive = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return isAlive;
}

LeftoverCheck::LeftoverCheck() {
  // The system keeps handles of its own from the first thread on.
  std::thread([] {}).join();
  threads = CountThreads();
  files = CountHandles();
}

std::string LeftoverCheck::Leftovers() const {
  if (!WaitUntil([this] { return CountThreads() <= threads; })) return "a thread";
  return WaitUntil([this] { return CountHandles() <= files; }) ? "" : "a handle";
}

}  // namespace morvane
