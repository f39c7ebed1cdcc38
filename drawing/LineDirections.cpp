#include "drawing/LineDirections.h"

#include <algorithm>

namespace morvane {

TextDirection LineDirections::Of(std::string_view line) {
  constexpr std::string_view lineBreaks = "\r\n";
  const auto begin = static_cast<std::size_t>(line.data() - utf8.data());
  const auto known = static_cast<std::size_t>(
      paragraph.empty() ? 0 : paragraph.data() + paragraph.size() - utf8.data());
  if (paragraph.empty() || begin > known) {
    const std::size_t before =
        begin == 0 ? std::string_view::npos : utf8.find_last_of(lineBreaks, begin - 1);
    const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(utf8.find_first_of(lineBreaks, start), utf8.size());
    paragraph = utf8.substr(start, end - start);
    direction = DirectionOf(paragraph);
  }
  return direction;
}

}  // namespace morvane
