#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// The columns of a step of indentation, and of a tab.
inline constexpr int kTabColumns = 4;

/// Lines with CR LF between them, each a step further to the right, by a tab or by blanks. Empty
/// lines stay empty.
std::string Indented(std::string_view lines, bool byTabs);
/// Each a step further to the left, as far as it can go.
std::string Unindented(std::string_view lines);

}  // namespace morvane
