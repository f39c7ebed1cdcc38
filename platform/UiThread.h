#pragma once

#include <functional>

#include "platform/Service.h"

namespace morvane {

/// The way from another thread to the user-interface thread. Behind the default service there is no
/// such thread: it drops what is posted.
class UiThread {
 public:
  using Task = std::function<void()>;

  virtual ~UiThread() = default;
  /// Has the task run on the user-interface thread a little later, and in the order of posting. For
  /// any thread; a task that hasn't run when the program ends is dropped.
  virtual void Post(Task task) = 0;
  static UiThread& Default();
};

}  // namespace morvane
