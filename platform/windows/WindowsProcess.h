#pragma once

#include <array>
#include <atomic>
#include <mutex>

#include "platform/Process.h"
#include "platform/windows/SystemHandle.h"

namespace morvane {

/// A child process in a console of its own, in a job that holds what it starts, so that its helpers
/// can be ended with it.
class WindowsProcess : public Process {
 public:
  /// Null if there is no such program, or if the system refuses. The system finds the program in
  /// the command line and hands it the line as it is.
  static std::unique_ptr<WindowsProcess> Start(const std::string& commandLine, bool showWindow);
  ~WindowsProcess() override;
  WindowsProcess(const WindowsProcess&) = delete;
  WindowsProcess& operator=(const WindowsProcess&) = delete;

  std::size_t Read(Stream stream, std::span<char> buffer) override;
  bool WaitForEnd(std::chrono::milliseconds limit) override;
  std::optional<ProcessEnd> End() override;
  void SignalStop() override;
  void CloseInherited() override;
  void CloseOwn() override;
  void Terminate() override;

 private:
  /// The read end of a stream. The lock keeps it open while its reader is at it.
  struct OwnEnd {
    std::mutex lock;
    SystemHandle handle;
    SystemHandle arrived;  ///< signalled when a read is done
  };

  WindowsProcess() = default;
  bool CreatePipes();
  bool CreateJob();
  bool Spawn(const std::string& commandLine, bool showWindow);
  bool HasEnded() const;

  SystemHandle stop;  ///< signalled from `SignalStop` on
  SystemHandle childInput;
  SystemHandle childOutput;
  SystemHandle childError;
  SystemHandle input;
  std::array<OwnEnd, 2> outputs;  ///< by `Stream`
  SystemHandle job;
  SystemHandle process;
  std::atomic<bool> terminated = false;
};

/// Programs of this system.
class WindowsProcesses : public Processes {
 public:
  std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) override;
  void Sleep(std::chrono::milliseconds time) override;
};

}  // namespace morvane
