#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace morvane {

/// Turns the bytes of a tool's output into lines for the screen, as they come. Each line is UTF-8
/// or else Windows-1252 for itself, and ends at LF, CR LF or CR, wherever the bytes were cut.
class ScreenText {
 public:
  /// A longer line goes on in the next one, in bytes.
  static constexpr std::size_t kLongestLine = 8192;
  /// No more lines come of one call; the newest stay.
  static constexpr std::size_t kMostLines = 20000;

  /// Takes more bytes. Gives, in UTF-8 with LF between the lines, what takes the place of the last
  /// line on the screen.
  std::string Add(std::string_view bytes);
  void Clear() { unfinished.clear(); }

 private:
  std::string unfinished;  ///< the bytes of the last line so far
};

}  // namespace morvane
