#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A text as a box shows it, in UTF-8.
struct BoxText {
  /// A line longer than that would be laid out for seconds at each key.
  static constexpr std::size_t kMaxLineBytes = std::size_t{1} << 20;

  explicit BoxText(std::string_view bytes);

  std::string utf8;
  bool whole = true;  ///< no line was too long and had to be cut short
};

}  // namespace morvane
