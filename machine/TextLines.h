#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The lines of a text with LF between them, counted from 1. The text has to outlive it.
class TextLines {
 public:
  explicit TextLines(std::string_view text);

  /// The line that the byte at `position` stands in; the last one for what lies behind the text.
  int NumberAt(std::size_t position) const;
  /// Without its end; empty where there is no such line.
  std::string_view Line(int number) const;

 private:
  std::string_view text;
  std::vector<std::size_t> starts;
};

}  // namespace morvane
