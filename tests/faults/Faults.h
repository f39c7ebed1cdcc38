#pragma once

#include <cstddef>

/// What goes wrong in this process's files and memory, for the length of a test. The linker sends
/// the program's calls here first.
class Faults {
 public:
  enum class Files { Writing, Reading };

  /// The call number `call` to the files, counting from 1 and opening and closing among them, fails
  /// with `error`. A write that is `cut` short puts half of its bytes into the file first.
  static void FailFileCall(Files kind, int call, int error, bool cut = false);
  /// The request number `request` for at least `size` bytes of memory is refused.
  static void FailMemory(int request, std::size_t size);
  /// Nothing fails any more. True if something did.
  static bool Disarm();
};
