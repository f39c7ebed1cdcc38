#include "tests/support/Leftovers.h"

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Files.h"

namespace morvane {

namespace {

std::ptrdiff_t Count(const char* kind) {
  const std::filesystem::directory_iterator entries(std::string("/proc/self/") + kind);
  return std::distance(begin(entries), end(entries));
}

}  // namespace

bool IsAlive(long process) {
  std::string stat;
  if (!ReadWholeFile("/proc/" + std::to_string(process) + "/stat", stat).Ok()) return false;
  return stat.substr(stat.rfind(')') + 2, 1) != "Z";
}

LeftoverCheck::LeftoverCheck() {
  // A sanitizer has a thread of its own, which comes with the first other one.
  pid_t first = 0;
  std::thread([&first] { first = gettid(); }).join();
  WaitUntil([first] { return kill(first, 0) != 0; });
  threads = Count("task");
  files = Count("fd");
}

std::string LeftoverCheck::Leftovers() const {
  if (!WaitUntil([this] { return Count("task") <= threads; })) return "a thread";
  if (Count("fd") != files) return "a file";
  return waitpid(-1, nullptr, WNOHANG) == -1 ? "" : "a child";
}

}  // namespace morvane
