#include "platform/Indentation.h"

#include <algorithm>

namespace morvane {

namespace {

/// Puts what `change` makes of each line in the place of it.
template <class Change>
std::string EachLine(std::string_view lines, const Change& change) {
  std::string out;
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    const std::size_t length = end == std::string_view::npos ? lines.size() : end + 1;
    change(out, lines.substr(0, length));
    lines.remove_prefix(length);
  }
  return out;
}

bool IsEmptyLine(std::string_view line) { return line.front() == '\r' || line.front() == '\n'; }

}  // namespace

std::string Indented(std::string_view lines, bool byTabs) {
  const std::string step = byTabs ? "\t" : std::string(kTabColumns, ' ');
  return EachLine(lines, [&step](std::string& out, std::string_view line) {
    if (!IsEmptyLine(line)) out += step;
    out += line;
  });
}

std::string Unindented(std::string_view lines) {
  return EachLine(lines, [](std::string& out, std::string_view line) {
    std::size_t blanks = std::min(line.find_first_not_of(' '), std::size_t{kTabColumns});
    if (blanks < kTabColumns && blanks < line.size() && line[blanks] == '\t') ++blanks;
    out += line.substr(std::min(blanks, line.size()));
  });
}

}  // namespace morvane
