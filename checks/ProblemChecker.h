#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "machine/Problem.h"
#include "platform/SharedText.h"

namespace morvane {

/// Finds out what is wrong with charts, on a thread of its own. Of one chart the last text counts:
/// one that was overtaken before its turn is left out.
class ProblemChecker {
 public:
  using Done = std::function<void(std::vector<Problem> problems)>;

  ProblemChecker();
  /// What waits is dropped.
  ~ProblemChecker();
  ProblemChecker(const ProblemChecker&) = delete;
  ProblemChecker& operator=(const ProblemChecker&) = delete;

  /// Has a whole model text checked; returns at once. `done` runs on the user-interface thread.
  /// `chart` only tells one chart from another.
  void Check(const void* chart, SharedText text, Done done);

 private:
  struct Request {
    SharedText text;
    Done done;
  };
  void Run();

  std::mutex lock;
  std::condition_variable changed;
  std::map<const void*, Request> waiting;
  bool ending = false;
  std::thread thread;
};

}  // namespace morvane
