#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A text of UTF-8 with CR LF in the place of each line break: CR LF, CR, LF, or the separators of
/// lines and paragraphs, which a box shows as breaks.
std::string WithCrLf(std::string_view utf8);

}  // namespace morvane
