#include "tests/tools/ToolSystem.h"

#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <io.h>
#include <string>
#include <windows.h>

namespace {

/// What the numbers of exceptions begin with
constexpr DWORD kException = 0xC0000000;

/// Starts this program once more; gives its number.
unsigned long StartHelper() {
  std::wstring line(MAX_PATH, L'\0');
  line.resize(GetModuleFileNameW(nullptr, line.data(), MAX_PATH));
  line = L'"' + line + L"\" helper";
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION started{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                     &started) == 0) {
    return 0;
  }
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return started.dwProcessId;
}

}  // namespace

void UseBytes() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  constexpr std::size_t room = std::size_t{1} << 16;
  std::setvbuf(stdout, nullptr, _IOFBF, room);
}

bool IsInputIdle() {
  DWORD there = 0;
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  return PeekNamedPipe(input, nullptr, 0, nullptr, &there, nullptr) != 0 && there == 0;
}

// As the system ends it, which would first ask whether to look into it.
void Die(long number) {
  TerminateProcess(GetCurrentProcess(), kException | static_cast<DWORD>(number));
}

[[noreturn]] void LiveOn() {
  while (true) Sleep(INFINITE);
}

[[noreturn]] void BeStubborn() {
  SetConsoleCtrlHandler(nullptr, TRUE);
  const unsigned long helper = StartHelper();
  std::printf("%lu %lu\n", GetCurrentProcessId(), helper);
  std::fflush(stdout);
  LiveOn();
}

[[noreturn]] void CloseStreamsAndLiveOn() {
  std::printf("%lu\n", GetCurrentProcessId());
  std::fflush(stdout);
  for (const DWORD stream : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    CloseHandle(GetStdHandle(stream));
  }
  LiveOn();
}
