#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// A piece of a text in any of the languages that charts are written for.
struct CodeToken {
  enum class Kind {
    Gap,  ///< blanks and comments
    Word,
    Number,
    Quote,  ///< a string or a character
    Mark    ///< an operator, or one other character
  };

  Kind kind = Kind::Gap;
  std::string_view text;

  bool Is(std::string_view mark) const { return kind == Kind::Mark && text == mark; }
};

/// All of a text, in its order. It has to outlive the pieces.
std::vector<CodeToken> CodeTokens(std::string_view code);

}  // namespace morvane
