#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

#include "platform/UiThread.h"
#include "platform/UseService.h"

namespace morvane {

/// Takes the place of the user-interface thread's queue: what is posted runs when the test says so.
class UiQueue : public UiThread {
 public:
  void Post(Task task) override {
    const std::lock_guard guard(lock);
    tasks.push_back(std::move(task));
    arrived.notify_one();
  }
  /// Runs tasks as they come until something is so; false if it takes far too long.
  bool RunUntil(const std::function<bool()>& isSo) {
    while (!isSo()) {
      std::unique_lock guard(lock);
      const auto isTask = [this] { return !tasks.empty(); };
      if (!arrived.wait_for(guard, std::chrono::seconds(30), isTask)) return false;
      const Task task = std::move(tasks.front());
      tasks.pop_front();
      guard.unlock();
      task();
    }
    return true;
  }
  void RunAll() {
    RunUntil([this] { return Count() == 0; });
  }
  std::size_t Count() {
    const std::lock_guard guard(lock);
    return tasks.size();
  }

 private:
  std::mutex lock;
  std::condition_variable arrived;
  std::deque<Task> tasks;
  const UseService<UiThread> use{*this};
};

}  // namespace morvane
