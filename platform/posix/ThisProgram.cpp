#include "platform/ThisProgram.h"

#include <csignal>
#include <spawn.h>
#include <unistd.h>

#include "platform/Files.h"

extern char** environ;

namespace morvane {

void LetCallsReportFailures() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

void JoinConsole() {
  // Every program has that of its parent here.
}

void StartProgramAnew(const std::string& file) {
  std::string program = ProgramPath();
  std::string argument = file;
  char* arguments[] = {program.data(), file.empty() ? nullptr : argument.data(), nullptr};
  posix_spawnattr_t session;
  posix_spawnattr_init(&session);
  posix_spawnattr_setflags(&session, POSIX_SPAWN_SETSID);
  pid_t started = 0;
  posix_spawn(&started, program.c_str(), nullptr, &session, arguments, environ);
  posix_spawnattr_destroy(&session);
}

}  // namespace morvane
