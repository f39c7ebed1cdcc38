#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace morvane {

/// A file or a pipe that is read as it grows. It never waits for anybody who writes.
class TailFile {
 public:
  /// "-" is standard input, of which a read waits for the next bytes or the end.
  explicit TailFile(const std::string& path);
  ~TailFile();
  TailFile(const TailFile&) = delete;
  TailFile& operator=(const TailFile&) = delete;

  bool IsOpen() const { return file != kNone; }
  /// The system's text for what keeps it from being opened or read; empty for nothing.
  const std::string& Reason() const { return reason; }
  /// Appends what is there by now, up to so many bytes. False if nothing is.
  bool Read(std::string& bytes, std::size_t most);

 private:
  static constexpr std::intptr_t kNone = -1;

  std::intptr_t file = kNone;  ///< the system's handle
  std::string reason;
};

}  // namespace morvane
