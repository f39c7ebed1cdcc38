#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <string>
#include <unistd.h>

// A tool for the tests of a generator run. The first argument says how it behaves.

namespace {

[[noreturn]] void LiveOn() {
  while (true) pause();
}

/// Numbered lines of ten bytes each, so that a gap shows; without end for a count of 0.
void WriteLines(std::FILE* stream, long count) {
  for (long i = 0; count == 0 || i < count; ++i) std::fprintf(stream, "%09ld\n", i);
}

/// Ignores every wish to end, and so does its helper.
[[noreturn]] void BeStubborn() {
  for (const int number : {SIGHUP, SIGINT, SIGPIPE, SIGTERM}) std::signal(number, SIG_IGN);
  const pid_t helper = fork();
  if (helper == 0) LiveOn();
  std::printf("%d %d\n", getpid(), helper);
  std::fflush(stdout);
  LiveOn();
}

[[noreturn]] void CloseStreamsAndLiveOn() {
  std::printf("%d\n", getpid());
  std::fflush(stdout);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
  LiveOn();
}

}  // namespace

int main(int count, char** arguments) {
  const std::string mode = count > 1 ? arguments[1] : "";
  const long number = count > 2 ? std::strtol(arguments[2], nullptr, 10) : 0;
  if (mode == "echo") {
    for (int i = 2; i < count; ++i) std::printf("[%s]\n", arguments[i]);
    pollfd input{STDIN_FILENO, POLLIN, 0};
    std::printf(poll(&input, 1, 0) == 0 ? "input is idle\n" : "input is ready\n");
  }
  if (mode == "lines" || mode == "both") WriteLines(stdout, number);
  if (mode == "both") WriteLines(stderr, number);
  if (mode == "exit") return static_cast<int>(number);
  if (mode == "signal") raise(static_cast<int>(number));
  if (mode == "stubborn") BeStubborn();
  if (mode == "silent") CloseStreamsAndLiveOn();
}
