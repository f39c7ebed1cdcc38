#pragma once

#include <array>
#include <csignal>
#include <mutex>
#include <sys/types.h>

#include "platform/Process.h"

namespace morvane {

/// One end of a pipe, or another file of the system; closed with the object.
class FileHandle {
 public:
  FileHandle() = default;
  /// Takes an open file.
  explicit FileHandle(int file) : file(file) {}
  ~FileHandle() { Close(); }
  FileHandle(FileHandle&& other) noexcept;
  FileHandle& operator=(FileHandle&& other) noexcept;

  int Get() const { return file; }
  bool IsOpen() const { return file >= 0; }
  void Close();

 private:
  int file = -1;
};

/// Both ends of a pipe, neither of them inherited by a program that is started.
struct Pipe {
  FileHandle read;
  FileHandle write;

  /// False if the system has no more of them.
  bool Create();
};

/// A child process in a session of its own, so that no terminal reaches it and so that its helpers
/// can be ended with it.
class PosixProcess : public Process {
 public:
  /// Null if there is no such program, or if the system refuses.
  static std::unique_ptr<PosixProcess> Start(const CommandParts& command);
  ~PosixProcess() override;
  PosixProcess(const PosixProcess&) = delete;
  PosixProcess& operator=(const PosixProcess&) = delete;

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
    FileHandle handle;
  };

  PosixProcess() = default;
  bool CreatePipes();
  bool Spawn(const CommandParts& command);
  /// What the system knows of an end; false if it doesn't know the process.
  bool Ask(siginfo_t& info) const;
  bool HasEnded() const;

  Pipe stop;  ///< its read end is ready once the write end is closed
  FileHandle childInput;
  FileHandle childOutput;
  FileHandle childError;
  FileHandle input;
  std::array<OwnEnd, 2> outputs;  ///< by `Stream`
  pid_t pid = 0;
  FileHandle ended;  ///< ready once the process has ended
};

/// Programs of this system.
class PosixProcesses : public Processes {
 public:
  std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) override;
  void Sleep(std::chrono::milliseconds time) override;
};

}  // namespace morvane
