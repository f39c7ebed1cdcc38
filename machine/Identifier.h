#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Names that any of the generated languages takes, keywords aside.
class Identifier {
 public:
  /// Letters without accents, digits and single underscores between them, with no digit in front.
  static bool IsSound(std::string_view text);
  /// Nothing but letters, digits, blanks and what joins words: "-", ".", "_".
  static bool IsAlmostSound(std::string_view utf8);
  /// Letters lose their accents, other characters become underscores, and `prefix` stands in front
  /// of a digit. Empty if nothing is left.
  static std::string Clean(std::string_view utf8, char prefix);
};

}  // namespace morvane
