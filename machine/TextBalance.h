#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace morvane {

/// What keeps a piece of code from standing by itself.
struct TextFault {
  std::string what;     ///< a "(", a quote, a comment, in the language of the user
  bool isOpen = false;  ///< it is never closed; otherwise it closes nothing
  int line = 0;         ///< within the text, counted from 0
};

/// Looks for brackets, quotes and comments that are not closed, in code of any of the languages
/// that charts are written for.
class TextBalance {
 public:
  /// The first fault.
  static std::optional<TextFault> Check(std::string_view code);
};

}  // namespace morvane
