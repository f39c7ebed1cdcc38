#include "generators/CodeWriter.h"

namespace morvane {

void CodeWriter::Put(std::string_view line, int blanks) {
  if (!line.empty()) text.append(static_cast<std::size_t>(blanks), ' ');
  text += line;
  text += '\n';
  ++lineCount;
  mayGap = !line.empty();
}

void CodeWriter::Line(std::string_view line) { Put(line, level * indentWidth); }

void CodeWriter::Gap() {
  if (mayGap) Line();
}

void CodeWriter::Open(std::string_view line) {
  Line(line);
  ++level;
  mayGap = false;
}

void CodeWriter::Close(std::string_view line) {
  --level;
  Line(line);
}

void CodeWriter::Reopen(std::string_view line) {
  Close(line);
  ++level;
  mayGap = false;
}

void CodeWriter::Lines(std::string_view lines) {
  const std::size_t last = lines.find_last_not_of(" \t\r\n");
  if (last == std::string_view::npos) return;
  lines = lines.substr(0, last + 1);
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    Line(lines.substr(0, end));
    lines = end == std::string_view::npos ? std::string_view() : lines.substr(end + 1);
  }
}

void CodeWriter::Verbatim(std::string_view lines) {
  const int kept = level;
  level = 0;
  Lines(lines);
  level = kept;
}

}  // namespace morvane
