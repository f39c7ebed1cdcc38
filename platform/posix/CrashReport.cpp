#include "platform/CrashReport.h"

#include <array>
#include <csignal>
#include <cstring>
#include <execinfo.h>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace morvane {

namespace {

constexpr std::array kFatal = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};
constexpr std::size_t kStackBytes = std::size_t{1} << 16;
constexpr int kMostCalls = 64;
constexpr mode_t kOwnerOnly = 0600;

// What the handler needs is made before, since it may ask nothing of the process that died.
std::string& ReportPath() {
  static std::string path;
  return path;
}
std::string& ReportHead() {
  static std::string head;
  return head;
}

void Say(int file, std::string_view text) {
  static_cast<void>(write(file, text.data(), text.size()) < 0);
}

std::string_view NameOf(int signal) {
  switch (signal) {
    case SIGSEGV: return "SIGSEGV";
    case SIGBUS: return "SIGBUS";
    case SIGILL: return "SIGILL";
    case SIGFPE: return "SIGFPE";
    default: return "SIGABRT";
  }
}

/// Calls nothing but what may be called within a signal.
void Report(int signal) {
  const int file = open(ReportPath().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kOwnerOnly);
  if (file >= 0) {
    Say(file, ReportHead());
    Say(file, NameOf(signal));
    Say(file, "\n\n");
    std::array<void*, kMostCalls> calls{};
    backtrace_symbols_fd(calls.data(), backtrace(calls.data(), kMostCalls), file);
    close(file);
  }
  // The handler was for once: now it dies as it would have.
  raise(signal);
}

}  // namespace

void CrashReport::Install(const std::string& path, const std::string& version) {
  if (path.empty()) return;
  ReportPath() = path;
  ReportHead() = "Morvane " + version + "\nSignal: ";
  std::array<void*, 1> warm{};
  backtrace(warm.data(), 1);  // loads its library, which a dying process can't

  // A handler of a stack that overflowed needs another one.
  static std::vector<char> room(kStackBytes);
  stack_t stack{};
  stack.ss_sp = room.data();
  stack.ss_size = room.size();
  sigaltstack(&stack, nullptr);

  struct sigaction action {};
  action.sa_handler = Report;
  action.sa_flags = static_cast<int>(SA_ONSTACK | SA_RESETHAND | SA_NODEFER);
  for (const int signal : kFatal) sigaction(signal, &action, nullptr);
}

}  // namespace morvane
