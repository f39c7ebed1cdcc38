#pragma once

#include <cstdint>
#include <string>

namespace morvane {

/// What tells whether the file at a path is still the one that it was: which file it is, how large,
/// and when it was written.
struct FileStamp {
  bool exists = false;
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;
  std::int64_t time = 0;  ///< of the last change, nanoseconds since 1970

  friend bool operator==(const FileStamp&, const FileStamp&) = default;

  /// Of the ordinary file at a path, links followed.
  static FileStamp Of(const std::string& path);
  /// As one line of numbers, and back; a line that is none gives the stamp of no file.
  std::string ToLine() const;
  static FileStamp FromLine(const std::string& line);
};

}  // namespace morvane
