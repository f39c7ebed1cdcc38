#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// A lock file that one process holds. The system releases it with the process, however that ends,
/// so that a stale one is told from one in use by trying to take it.
class FileLock {
 public:
  FileLock() = default;
  ~FileLock();
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;

  /// Makes the file if there is none and takes its lock; not held when somebody else has it or the
  /// file can't be made.
  static FileLock Take(const std::string& path);
  /// Somebody holds the lock of a file; this process counts too.
  static bool IsHeld(const std::string& path);

  bool Held() const { return handle != kNone; }
  /// Puts a text into the file in place of the former one.
  void Write(std::string_view text) const;
  /// Takes the file away and lets the lock go.
  void Remove();

 private:
  void Release();

  static constexpr std::intptr_t kNone = -1;

  std::string path;
  std::intptr_t handle = kNone;  ///< the system's, of the open file
};

}  // namespace morvane
