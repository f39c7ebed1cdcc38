#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows/SystemHandle.h"

namespace morvane {

/// A file of the system, open until it is closed or the object goes. Each operation gives 0 or the
/// errno of its failure.
class WindowsFile {
 public:
  enum class Use {
    Read,       ///< also while others write, rename or delete it
    Overwrite,  ///< one that is there, whose bytes nobody else has locked
    MakeNew     ///< one that is not there yet
  };

  /// What the system knows of an open file.
  struct Facts {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;
    std::int64_t size = 0;
    std::int64_t time = 0;  ///< of the last change, as the system counts
    unsigned long attributes = 0;
    unsigned long names = 0;

    /// Both are the same file.
    bool IsSame(const Facts& other) const {
      return volume == other.volume && number == other.number;
    }
  };

  int Open(const std::wstring& path, Use use);
  /// Asks for what is known of a file, for which nobody needs to be let in.
  static int Ask(const std::wstring& path, Facts& facts);
  int Ask(Facts& facts) const;
  /// A path as the system has it written, links and dots resolved; empty if there is no such file.
  static std::wstring FinalPath(const std::wstring& path);
  /// It lies on a disk: it is no pipe, device or console.
  bool IsOnDisk() const;
  /// Adds all that is left of the file to `bytes`.
  int Read(std::string& bytes);
  /// Has the system set the space aside for a file that is to become longer. It may have grown also
  /// if this fails.
  int Reserve(std::int64_t length);
  /// Writes all bytes at the place where the last operation ended. `written` counts them, also if
  /// this fails.
  int Write(std::string_view bytes, std::size_t& written);
  /// Sets the length.
  int Cut(std::int64_t length);
  /// Waits until the bytes are on the disk.
  int Sync();
  /// Sets the time of the last change.
  int SetTime(std::int64_t time);
  int Close();

 private:
  SystemHandle handle;
};

}  // namespace morvane
