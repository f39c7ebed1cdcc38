#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>

namespace morvane {

/// Waits for what other threads or processes do; false if it takes far too long.
inline bool WaitUntil(const std::function<bool()>& isSo) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!isSo()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::yield();
  }
  return true;
}

/// The process of that number runs.
bool IsAlive(long process);

/// Counts threads, open files and children, to find what a test leaves behind.
class LeftoverCheck {
 public:
  LeftoverCheck();
  /// What there is more than at the beginning; empty if nothing is.
  std::string Leftovers() const;

 private:
  std::ptrdiff_t threads;
  std::ptrdiff_t files;
};

}  // namespace morvane
