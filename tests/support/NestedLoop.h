#pragma once

#include <functional>

namespace morvane {

/// The loop that a real box, menu or dialog runs while it waits for the user: the windows that
/// there are get their events. Each double runs it before it answers, so that whatever a box meets
/// half done is met in every test in which one opens.
class NestedLoop {
 public:
  /// Does one window's part, or that of all windows of a toolkit.
  using Part = std::function<void()>;

  /// Takes part in every loop as long as it lives.
  class Member {
   public:
    explicit Member(Part part);
    ~Member();
    Member(const Member&) = delete;
    Member& operator=(const Member&) = delete;

   private:
    int id;
  };

  /// Runs the loop once. A loop within a loop has nothing to add.
  static void Run();
};

}  // namespace morvane
