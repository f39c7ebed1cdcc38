#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/Files.h"
#include "platform/UseService.h"
#include "platform/posix/PosixProcess.h"

namespace morvane {

/// The command line of the tests' own tool.
inline std::string ToolLine(const std::string& arguments) {
  return std::string(MORVANE_TEST_TOOL) + " " + arguments;
}

/// Starts real programs, or `instead` whatever it is told, and never rests.
class TestProcesses : public PosixProcesses {
 public:
  std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) override {
    started.push_back(commandLine);
    return PosixProcesses::Start(instead.empty() ? commandLine : instead, showWindow);
  }
  void Sleep(std::chrono::milliseconds time) override { slept += time; }

  std::vector<std::string> started;
  std::string instead;
  std::chrono::milliseconds slept{};

 private:
  const UseService<Processes> use{*this};
};

/// Waits for what other threads or processes do; false if it takes far too long.
inline bool WaitUntil(const std::function<bool()>& isSo) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!isSo()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::yield();
  }
  return true;
}

inline bool IsAlive(pid_t pid) {
  std::string stat;
  if (!ReadWholeFile("/proc/" + std::to_string(pid) + "/stat", stat).Ok()) return false;
  return stat.substr(stat.rfind(')') + 2, 1) != "Z";
}

/// Counts threads, open files and children, to find what a test leaves behind.
class LeftoverCheck {
 public:
  LeftoverCheck() {
    // A sanitizer has a thread of its own, which comes with the first other one.
    pid_t first = 0;
    std::thread([&first] { first = gettid(); }).join();
    WaitUntil([first] { return kill(first, 0) != 0; });
    threads = Count("task");
    files = Count("fd");
  }
  /// What there is more than at the beginning; empty if nothing is.
  std::string Leftovers() const {
    if (!WaitUntil([this] { return Count("task") <= threads; })) return "a thread";
    if (Count("fd") != files) return "a file";
    return waitpid(-1, nullptr, WNOHANG) == -1 ? "" : "a child";
  }

 private:
  static std::ptrdiff_t Count(const char* kind) {
    const std::filesystem::directory_iterator entries(std::string("/proc/self/") + kind);
    return std::distance(begin(entries), end(entries));
  }

  std::ptrdiff_t threads;
  std::ptrdiff_t files;
};

/// The tool's lines from one number to before another.
inline std::string NumberedLines(long first, long end) {
  std::string text;
  for (long i = first; i < end; ++i) text += std::to_string(1'000'000'000 + i).substr(1) + "\n";
  return text;
}

}  // namespace morvane
