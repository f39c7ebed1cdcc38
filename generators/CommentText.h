#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The lines of a text as they may stand in a comment of any language: valid UTF-8 without control
/// characters and without those that turn the direction of what follows, and with no end of a
/// comment in them. Empty lines at the end are left out.
std::vector<std::string> CommentLines(std::string_view text);

/// The same in one line.
std::string CommentLine(std::string_view text);

}  // namespace morvane
