#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A lock file that one process holds. The system releases it with the process, however that ends,
/// so that a stale one is told from one in use by trying to take it.
class EntryLock {
 public:
  EntryLock() = default;
  ~EntryLock();
  EntryLock(EntryLock&& other) noexcept;
  EntryLock& operator=(EntryLock&& other) noexcept;

  /// Makes the file if there is none and takes its lock; not held when somebody else has it or the
  /// file can't be made.
  static EntryLock Take(const std::string& path);
  /// Somebody holds the lock of a file; this process counts too.
  static bool IsHeld(const std::string& path);

  bool Held() const { return descriptor >= 0; }
  /// Puts a text into the file in place of the former one.
  void Write(std::string_view text) const;
  /// Takes the file away and lets the lock go.
  void Remove();

 private:
  void Release();

  std::string path;
  int descriptor = -1;
};

}  // namespace morvane
