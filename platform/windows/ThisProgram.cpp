#include "platform/ThisProgram.h"

#include <array>
#include <cstdio>
#include <windows.h>

#include "platform/Files.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/WideText.h"

namespace morvane {

namespace {

struct Stream {
  DWORD number;
  const char* console;
  const char* mode;
  FILE* file;
};

bool LeadsSomewhere(DWORD number) {
  const HANDLE handle = GetStdHandle(number);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
         GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

void LetCallsReportFailures() {
  // The system would ask the user for a disk, or say that the program is at fault.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

void JoinConsole() {
  const std::array<Stream, 3> streams = {{{STD_INPUT_HANDLE, "CONIN$", "r", stdin},
                                          {STD_OUTPUT_HANDLE, "CONOUT$", "w", stdout},
                                          {STD_ERROR_HANDLE, "CONOUT$", "w", stderr}}};
  std::array<bool, streams.size()> given = {};
  for (std::size_t i = 0; i < streams.size(); ++i) given[i] = LeadsSomewhere(streams[i].number);
  if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  for (std::size_t i = 0; i < streams.size(); ++i) {
    if (given[i]) continue;
    static_cast<void>(std::freopen(streams[i].console, streams[i].mode, streams[i].file));
  }
}

void StartProgramAnew(const std::string& file) {
  const std::wstring program = WidePath(ProgramPath());
  std::wstring line = L"\"" + program + L"\"";
  // A path holds no quotes, and none of a file ends with a backslash, which would take one along.
  if (!file.empty()) line += L" \"" + Wide(file) + L"\"";
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION process = {};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &start, &process) == 0) {
    return;
  }
  const SystemHandle started(process.hProcess);
  const SystemHandle thread(process.hThread);
}

}  // namespace morvane
