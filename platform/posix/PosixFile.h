#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>

namespace morvane {

/// A file of the system, open until it is closed or the object goes. Each operation gives 0 or the
/// errno of its failure.
class PosixFile {
 public:
  PosixFile() = default;
  ~PosixFile();
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;

  /// Opens a file with the system's flags; no program that is started from here gets it. A new one
  /// has the mode without what the process masks.
  int Open(const std::string& path, int flags, mode_t mode = 0);
  int Status(struct stat& status) const;
  /// Adds all that is left of the file to `bytes`.
  int Read(std::string& bytes);
  /// Has the system set the space aside for a file that is to become `length` bytes long. The file
  /// may grow to that, with zeros behind its old end, also if this fails. EOPNOTSUPP where that is
  /// unknown.
  int Reserve(off_t oldLength, off_t length);
  /// Writes all bytes at the place where the last operation ended. `written` counts them, also if
  /// this fails.
  int Write(std::string_view bytes, std::size_t& written);
  /// Sets the length.
  int Cut(off_t length);
  /// Waits until the bytes are on the disk, so far as the file has one.
  int Sync();
  int SetOwner(uid_t owner, gid_t group);
  int SetMode(mode_t mode);
  /// Sets the time of the last change.
  int SetTime(const timespec& time);
  /// Some file systems tell of a failure not before this. The file is closed in any case.
  int Close();

 private:
  static constexpr int kNone = -1;
  int handle = kNone;
};

}  // namespace morvane
