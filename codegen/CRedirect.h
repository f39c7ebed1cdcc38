#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace morvane {

class Process;
struct ProcessEnd;

/// Starts a tool with its output redirected and reports what it writes. Two readers and a watcher
/// run on threads of their own; whatever they report comes to the operations below on the
/// user-interface thread, and nothing comes after the run was stopped.
class CRedirect {
 public:
  /// The most that `StopTool` waits for a thread, or for the end of the tool.
  static constexpr std::chrono::milliseconds kLongestWait{1000};

  explicit CRedirect(std::chrono::milliseconds longestWait = kLongestWait);
  /// Stops the tool.
  virtual ~CRedirect();
  CRedirect(const CRedirect&) = delete;
  CRedirect& operator=(const CRedirect&) = delete;

  /// Ends and releases a former run, and starts the command line. False if it can't be started,
  /// which is reported as output.
  bool LaunchTool(const std::string& commandLine, bool showWindow);
  /// Ends a tool that still runs and releases all that the run holds. Takes most of a second, in
  /// which the threads and the tool get time to end by themselves.
  void StopTool();

  /// A tool runs. There is one flag for all objects of the class.
  static bool IsRunning() { return running; }

 protected:
  virtual void OnToolStarted(const std::string& /*commandLine*/) {}
  virtual void OnToolOutput(const std::string& /*text*/) {}
  virtual void OnToolError(const std::string& /*text*/) {}
  virtual void OnToolExited() {}
  /// How the tool that was started last ended; nothing while it runs, or if that isn't known.
  std::optional<ProcessEnd> ToolEnd() const;

 private:
  struct Run;
  /// A stop with its pauses leaves them to the threads and the tool; one without goes on at once.
  enum class Pauses { Kept, LeftOut };

  bool StartThreads();
  void ReportFailure(const std::string& commandLine);
  void Stop(Pauses pauses);

  static std::atomic<bool> running;

  std::chrono::milliseconds longestWait;
  std::shared_ptr<Run> run;  ///< shared with its threads
};

}  // namespace morvane
