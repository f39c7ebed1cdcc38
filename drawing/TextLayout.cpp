#include "drawing/TextLayout.h"

#include <algorithm>
#include <utility>

#include "drawing/LinePieces.h"
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

std::size_t TextLayout::MostBytes(std::int64_t width) {
  constexpr std::int64_t widest = 100'000;
  return static_cast<std::size_t>(std::clamp<std::int64_t>(width, 0, widest)) * 4 + 64;
}

std::int32_t TextLayout::MeasureBounded(std::string_view piece) const {
  return measure(Utf8Prefix(piece, MostBytes(width)));
}

void TextLayout::BreakParagraph(std::string_view paragraph, std::size_t maxLines,
                                std::vector<std::string_view>& lines) const {
  if (!wordBreak) {
    lines.push_back(paragraph);
    return;
  }
  LinePieces pieces(paragraph);
  std::size_t lineStart = 0;
  std::size_t lineEnd = 0;
  std::int64_t lineWidth = 0;
  bool isForeign = false;  // some of the line
  while (lines.size() < maxLines && pieces.Next()) {
    const std::size_t end = pieces.End();
    const std::int64_t added = MeasureBounded(paragraph.substr(lineEnd, end - lineEnd));
    const bool first = lineEnd == lineStart;
    isForeign = isForeign || pieces.IsForeign();
    if (!first && isForeign && lineWidth + added > width) {
      // Each of many small pieces was rounded up.
      lineWidth = MeasureBounded(paragraph.substr(lineStart, end - lineStart)) - added;
    }
    if (!first && lineWidth + added > width) {
      lines.push_back(paragraph.substr(lineStart, lineEnd - lineStart));
      lineStart = pieces.Begin();
      isForeign = pieces.IsForeign();
      lineWidth = MeasureBounded(paragraph.substr(lineStart, end - lineStart));
    } else {
      lineWidth += added;
    }
    lineEnd = end;
  }
  if (lines.size() < maxLines) lines.push_back(paragraph.substr(lineStart, lineEnd - lineStart));
}

}  // namespace morvane
