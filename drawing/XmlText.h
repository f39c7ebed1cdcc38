#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A UTF-8 text as it stands between tags and in attributes: what means something to XML is
/// escaped, and control characters, which it can't hold, become blanks.
std::string XmlEscape(std::string_view utf8);

}  // namespace morvane
