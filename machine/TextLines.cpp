#include "machine/TextLines.h"

#include <algorithm>

namespace morvane {

TextLines::TextLines(std::string_view text) : text(text), starts{0} {
  for (std::size_t end = text.find('\n'); end != std::string_view::npos;
       end = text.find('\n', end + 1)) {
    starts.push_back(end + 1);
  }
}

int TextLines::NumberAt(std::size_t position) const {
  return static_cast<int>(std::ranges::upper_bound(starts, position) - starts.begin());
}

std::string_view TextLines::Line(int number) const {
  if (number < 1 || number > std::ssize(starts)) return {};
  const std::string_view rest = text.substr(starts[static_cast<std::size_t>(number) - 1]);
  return rest.substr(0, rest.find('\n'));
}

}  // namespace morvane
