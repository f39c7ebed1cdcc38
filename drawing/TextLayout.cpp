#include "drawing/TextLayout.h"

#include <algorithm>
#include <utility>

#include "drawing/TextCodec.h"

namespace morvane {

TextLayout::TextLayout(Measure measure, std::int64_t width, bool wordBreak)
    : measure(std::move(measure)), width(std::max<std::int64_t>(width, 0)), wordBreak(wordBreak) {}

std::vector<std::string_view> TextLayout::Break(std::string_view utf8, std::size_t maxLines) const {
  std::vector<std::string_view> lines;
  std::size_t position = 0;
  while (lines.size() < maxLines && position < utf8.size()) {
    const std::size_t end = std::min(utf8.find_first_of("\r\n", position), utf8.size());
    BreakParagraph(utf8.substr(position, end - position), maxLines, lines);
    position = end;
    if (position < utf8.size()) {
      const bool pair = utf8.substr(position, 2) == "\r\n";
      position += pair ? 2 : 1;
    }
  }
  return lines;
}

std::int32_t TextLayout::MeasureBounded(std::string_view piece) const {
  // A piece of so many bytes is wider than any line, whatever the letters.
  const std::size_t limit =
      static_cast<std::size_t>(std::min<std::int64_t>(width, 100'000)) * 4 + 64;
  return measure(Utf8Prefix(piece, limit));
}

void TextLayout::BreakParagraph(std::string_view paragraph, std::size_t maxLines,
                                std::vector<std::string_view>& lines) const {
  if (!wordBreak) {
    lines.push_back(paragraph);
    return;
  }
  constexpr std::string_view blanks = " \t";
  std::size_t lineStart = 0;
  std::size_t lineEnd = 0;
  std::int64_t lineWidth = 0;
  std::size_t position = 0;
  while (lines.size() < maxLines) {
    const std::size_t wordStart =
        std::min(paragraph.find_first_not_of(blanks, position), paragraph.size());
    const std::size_t wordEnd =
        std::min(paragraph.find_first_of(blanks, wordStart), paragraph.size());
    if (wordStart == wordEnd) break;
    const std::int64_t added = MeasureBounded(paragraph.substr(lineEnd, wordEnd - lineEnd));
    const bool first = lineEnd == lineStart;
    if (!first && lineWidth + added > width) {
      lines.push_back(paragraph.substr(lineStart, lineEnd - lineStart));
      lineStart = wordStart;
      lineWidth = MeasureBounded(paragraph.substr(wordStart, wordEnd - wordStart));
    } else {
      lineWidth += added;
    }
    lineEnd = wordEnd;
    position = wordEnd;
  }
  if (lines.size() < maxLines) lines.push_back(paragraph.substr(lineStart, lineEnd - lineStart));
}

}  // namespace morvane
