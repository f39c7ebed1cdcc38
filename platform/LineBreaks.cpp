#include "platform/LineBreaks.h"

#include <algorithm>

namespace morvane {

namespace {

/// The number of bytes of the line break that a text begins with; 0 if it begins with none.
std::size_t BreakLength(std::string_view text) {
  constexpr std::string_view lineSeparator = "\xE2\x80\xA8";
  constexpr std::string_view paragraphSeparator = "\xE2\x80\xA9";
  if (text.starts_with("\r\n")) return 2;
  if (text.front() == '\r' || text.front() == '\n') return 1;
  return text.starts_with(lineSeparator) || text.starts_with(paragraphSeparator) ? 3 : 0;
}

}  // namespace

std::string WithCrLf(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::size_t next = std::min(utf8.find_first_of("\r\n\xE2"), utf8.size());
    out += utf8.substr(0, next);
    utf8.remove_prefix(next);
    if (utf8.empty()) break;
    const std::size_t length = BreakLength(utf8);
    if (length == 0) {
      out += utf8.front();
    } else {
      out += "\r\n";
    }
    utf8.remove_prefix(length == 0 ? 1 : length);
  }
  return out;
}

}  // namespace morvane
