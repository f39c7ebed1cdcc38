#pragma once

#include <csignal>
#include <sys/resource.h>

namespace morvane {

/// No file of this process can grow beyond a few bytes, as on a full disk.
class FullDisk {
 public:
  static constexpr rlim_t kBytes = 100;

  FullDisk() : handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit limit{kBytes, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
  }

 private:
  void (*handler)(int);
  rlimit former{};
};

}  // namespace morvane
