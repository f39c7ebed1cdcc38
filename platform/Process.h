#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Service.h"

namespace morvane {

/// How a process ended.
struct ProcessEnd {
  enum class How { Exited, Killed };

  How how = How::Exited;
  int number = 0;  ///< the exit code, or the signal that killed it
};

/// A program that was started with pipes for its three standard streams. The object stands for the
/// process even after its end, until it is destroyed. What it says of threads holds for one reader
/// of each stream.
class Process {
 public:
  enum class Stream { Output, Error };

  virtual ~Process() = default;
  /// Waits for bytes of a stream and gives how many came; 0 once the stream has ended, or from
  /// `SignalStop` on. For a thread of its own.
  virtual std::size_t Read(Stream stream, std::span<char> buffer) = 0;
  /// Waits for the end of the process, but no longer than the limit; true if it has ended. For any
  /// thread.
  virtual bool WaitForEnd(std::chrono::milliseconds limit) = 0;
  /// How the process ended; nothing while it runs, or if the system doesn't know. For any thread.
  virtual std::optional<ProcessEnd> End() = 0;
  /// Wakes the readers for good.
  virtual void SignalStop() = 0;
  /// Closes what is still open here of the three ends that the program was given.
  virtual void CloseInherited() = 0;
  /// Closes the three ends of this side. Comes after `SignalStop`.
  virtual void CloseOwn() = 0;
  /// Ends the process without asking it, and with it what it has started and not let go.
  virtual void Terminate() = 0;
};

/// Starts programs. The default service does.
class Processes {
 public:
  virtual ~Processes() = default;
  /// Starts a command line without a shell, in the program's own folder and environment: finds the
  /// program in it, splits the rest and hands it over. Null if that fails.
  virtual std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) = 0;
  /// Lets the calling thread rest.
  virtual void Sleep(std::chrono::milliseconds time) = 0;
  static Processes& Default();
};

/// A command line as it is run.
struct CommandParts {
  std::string program;  ///< a file that can be run; empty if there is none
  std::vector<std::string> arguments;
};

/// Finds the program: each prefix that ends before a blank or with the line, the shortest first, as
/// it stands and then with ".exe". A line that begins with a quotation mark names it in quotes.
CommandParts SplitCommandLine(std::string_view commandLine);
/// Splits at blanks, but not between quotation marks, which go away.
std::vector<std::string> SplitArguments(std::string_view text);

}  // namespace morvane
