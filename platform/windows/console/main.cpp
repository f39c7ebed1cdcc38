#include <algorithm>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

#include "platform/ThisProcess.h"
#include "platform/windows/SystemHandle.h"

using namespace morvane;

// What a console finds by the program's bare name: it starts the program beside it, which has
// windows, with the streams of the console, and waits for a job as no console does by itself.

namespace {

constexpr std::string_view kNewInstance = "--new-instance";
constexpr std::wstring_view kEnding = L".exe";
constexpr int kFailure = 1;

/// The program of the same name; empty if the system doesn't tell.
std::wstring ProgramBeside() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size()) {
    path.resize(2 * path.size());
  }
  path.resize(length);
  return path.size() < kEnding.size()
             ? std::wstring()
             : path.replace(path.size() - kEnding.size(), kEnding.size(), kEnding);
}

/// A start that opens a window has the console back at once.
bool IsJob(const std::vector<std::string>& arguments) {
  return std::ranges::any_of(arguments, [](const std::string& argument) {
    return argument.starts_with('-') && argument != kNewInstance;
  });
}

}  // namespace

int main(int argc, char** argv) {
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  std::wstring line = GetCommandLineW();
  PROCESS_INFORMATION process = {};
  if (CreateProcessW(ProgramBeside().c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                     nullptr, &start, &process) == 0) {
    return kFailure;
  }
  const SystemHandle started(process.hProcess);
  const SystemHandle thread(process.hThread);
  if (!IsJob(ProgramArguments(argc, argv))) return 0;
  DWORD status = kFailure;
  WaitForSingleObject(started.Get(), INFINITE);
  GetExitCodeProcess(started.Get(), &status);
  return static_cast<int>(status);
}
