#pragma once

#pragma once

#include <cstddef>
#include <functional>

namespace morvane {

/// What goes wrong in this process's files and memory, for the length of a test. The linker sends
/// the program's calls here first.
class Faults {
 public:
  /// Calls that write, to which those belong that look at a name or a folder on the way, and calls
  /// that read.
  enum class Files { Writing, Reading };
  /// How a child process has ended.
  enum class End { RanThrough, Killed, Failed };

  /// The call number `call` to the files, counting from 1 and opening and closing among them, fails
  /// with `error`. A write that is `cut` short puts half of its bytes into the file first.
  static void FailFileCall(Files kind, int call, int error, bool cut = false);
  /// The request number `request` for at least `size` bytes of memory is refused.
  static void FailMemory(int request, std::size_t size);
  /// Nothing fails any more. True if something did.
  static bool Disarm();

  /// Does some work in a child process, which is killed when it comes to its call number `call` to
  /// write files, counting from 1: before anything of that is done, or, if it is a write that is
  /// `cut`, with half of its bytes in the file. The work shares nothing with this process but the
  /// files. `Failed` is any other end of the child, an exception among them.
  static End KillAtFileCall(int call, bool cut, const std::function<void()>& work);
};

}  // namespace morvane
