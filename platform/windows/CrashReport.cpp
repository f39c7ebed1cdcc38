#include "platform/CrashReport.h"

#include <array>
#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

constexpr ULONG kMostCalls = 62;  // as the system's own limit for some versions
/// What is kept free of a stack that overflows, for the report.
constexpr ULONG kStackBytes = 1UL << 16;

// What the handler needs is made before, since it may ask little of the process that died.
std::wstring& ReportPath() {
  static std::wstring path;
  return path;
}
std::string& ReportHead() {
  static std::string head;
  return head;
}

void Say(HANDLE file, std::string_view text) {
  DWORD written = 0;
  WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

const char* NameOf(DWORD exception) {
  switch (exception) {
    case EXCEPTION_ACCESS_VIOLATION: return "access violation";
    case EXCEPTION_STACK_OVERFLOW: return "stack overflow";
    case EXCEPTION_ILLEGAL_INSTRUCTION: return "illegal instruction";
    case EXCEPTION_INT_DIVIDE_BY_ZERO: return "division by zero";
    case EXCEPTION_IN_PAGE_ERROR: return "page not loaded";
    default: return "exception";
  }
}

/// A call as the program that it is in and the place there, which debug information gives a name.
void SayCall(HANDLE file, const void* call) {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<const wchar_t*>(call), &module);
  std::array<char, MAX_PATH> name{};
  if (module != nullptr) GetModuleFileNameA(module, name.data(), name.size() - 1);
  const auto place = reinterpret_cast<std::uintptr_t>(call);
  const auto base = reinterpret_cast<std::uintptr_t>(module);
  std::array<char, MAX_PATH + 40> line{};
  const int length =
      std::snprintf(line.data(), line.size(), "%s+0x%" PRIxPTR "\n", name.data(), place - base);
  if (length > 0) Say(file, {line.data(), static_cast<std::size_t>(length)});
}

void Report(std::string_view cause, const void* place) {
  const HANDLE file = CreateFileW(ReportPath().c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  Say(file, ReportHead());
  Say(file, cause);
  Say(file, "\n\n");
  if (place != nullptr) SayCall(file, place);
  std::array<void*, kMostCalls> calls{};
  const USHORT count = RtlCaptureStackBackTrace(0, kMostCalls, calls.data(), nullptr);
  for (USHORT i = 0; i < count; ++i) SayCall(file, calls[i]);
  CloseHandle(file);
}

LONG WINAPI OnException(EXCEPTION_POINTERS* what) {
  const DWORD code = what->ExceptionRecord->ExceptionCode;
  std::array<char, 64> cause{};
  const int length = std::snprintf(cause.data(), cause.size(), "%s (0x%08lX)", NameOf(code), code);
  Report({cause.data(), static_cast<std::size_t>(length)}, what->ExceptionRecord->ExceptionAddress);
  // Now it dies as it would have.
  return EXCEPTION_CONTINUE_SEARCH;
}

void OnAbort(int /*signal*/) {
  Report("abort", nullptr);
  // The handler was for once.
}

}  // namespace

void CrashReport::Install(const std::string& path, const std::string& version) {
  if (path.empty()) return;
  ReportPath() = WidePath(path);
  ReportHead() = "Morvane " + version + "\nSignal: ";
  ULONG room = kStackBytes;
  SetThreadStackGuarantee(&room);
  SetUnhandledExceptionFilter(OnException);
  std::signal(SIGABRT, OnAbort);
}

}  // namespace morvane
