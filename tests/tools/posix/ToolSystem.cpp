#include "tests/tools/ToolSystem.h"

#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <poll.h>
#include <unistd.h>

void UseBytes() {
  // It is nothing else here.
}

bool IsInputIdle() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return poll(&input, 1, 0) == 0;
}

void Die(long number) { raise(static_cast<int>(number)); }

[[noreturn]] void LiveOn() {
  while (true) pause();
}

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
