#pragma once

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace morvane {

/// A child process that does something without end until it is killed.
class KilledChild {
 public:
  template <class Work>
  explicit KilledChild(const Work& work) : child(fork()) {
    if (child != 0) return;
    work();
    std::_Exit(EXIT_FAILURE);
  }
  /// Lets it work for a while and kills it as nothing else could. False if it ended by itself.
  bool KillAfter(std::chrono::microseconds time) const {
    std::this_thread::sleep_for(time);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

 private:
  pid_t child;
};

}  // namespace morvane
