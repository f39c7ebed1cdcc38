#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace morvane {

class UiThread;

/// What the threads of a tool's run report, on its way to the user-interface thread. It never makes
/// a thread wait: when reports come faster than they are taken, the oldest output goes.
class ToolInbox : public std::enable_shared_from_this<ToolInbox> {
 public:
  enum class Kind { Output, Error, Exited };
  using Receiver = std::function<void(Kind kind, const std::string& text)>;

  /// The newest output that is kept for certain, in bytes.
  static constexpr std::size_t kCapacity = std::size_t{1} << 20;

  /// The receiver is called on the thread behind `ui`, and only until `Close`.
  ToolInbox(UiThread& ui, Receiver receiver);

  /// For any thread.
  void Add(Kind kind, std::string_view text);
  /// Drops what waits and all that is still to come. For the user-interface thread.
  void Close();

 private:
  struct Report {
    Kind kind;
    std::string text;
  };

  void DropOldest();
  void Deliver();

  std::mutex lock;
  UiThread* ui;  ///< null once closed
  bool posted = false;
  std::deque<Report> reports;
  std::size_t size = 0;  ///< bytes of all reports
  Receiver receiver;     ///< for the user-interface thread alone
};

}  // namespace morvane
