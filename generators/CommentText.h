#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// How a text has to look inside a comment.
enum class CommentStyle {
  Line,   ///< behind `//`: no backslash may end it
  Block,  ///< between `/*` and `*/`
  Xml,    ///< behind `///` in C#: with entities
  Html    ///< inside of a Javadoc comment: with entities for all but ASCII
};

/// The lines of a text for a comment of that style. Whatever could end the comment, hide code or
/// turn its direction is replaced or left out; so are blanks and empty lines at the end.
std::vector<std::string> CommentLines(std::string_view text, CommentStyle style);

/// The same in one line.
std::string CommentLine(std::string_view text, CommentStyle style);

}  // namespace morvane
