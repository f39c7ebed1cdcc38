#include "generators/CommentText.h"

#include <cstdint>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

bool IsControl(std::uint32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

/// Line ends of other tools, and what turns the direction of a line.
bool IsTrap(std::uint32_t c) {
  return (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

void AppendCharacter(std::string& line, std::uint32_t c, CommentStyle style) {
  // A backslash may begin the code of a character, and an asterisk the comment's end.
  constexpr std::string_view kMeantByJavadoc = "@\\{}*";
  const bool isMeant = c >= 0x80 || kMeantByJavadoc.find(static_cast<char>(c)) != std::string::npos;
  if (style == CommentStyle::Block && !line.empty()) {
    if ((line.back() == '*' && c == '/') || (line.back() == '/' && c == '*')) line += ' ';
  }
  if (style == CommentStyle::Line || style == CommentStyle::Block) {
    AppendUtf8(line, c);
  } else if (c == '<' || c == '>' || c == '&') {
    line += c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&amp;";
  } else if (style == CommentStyle::Html && isMeant) {
    line += "&#" + std::to_string(c) + ';';
  } else {
    AppendUtf8(line, c);
  }
}

void Finish(std::string& line, CommentStyle style) {
  line.erase(line.find_last_not_of(' ') + 1);
  const bool joins = line.ends_with('\\') || line.ends_with("?\?/");
  if (style == CommentStyle::Line && joins) line += " .";
}

}  // namespace

std::vector<std::string> CommentLines(std::string_view text, CommentStyle style) {
  const std::string utf8 = ToUtf8(text);
  std::vector<std::string> lines(1);
  for (std::size_t at = 0; at < utf8.size();) {
    const CodePoint c = DecodeUtf8(utf8, at);
    at += c.length;
    if (c.value == '\n') {
      lines.emplace_back();
    } else if (c.value == '\t') {
      lines.back() += ' ';
    } else if (!IsControl(c.value) && !IsTrap(c.value)) {
      AppendCharacter(lines.back(), c.value, style);
    }
  }
  for (std::string& line : lines) Finish(line, style);
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

std::string CommentLine(std::string_view text, CommentStyle style) {
  std::string joined;
  for (const std::string& line : CommentLines(text, style)) {
    if (!joined.empty() && !line.empty()) joined += ' ';
    joined += line;
  }
  return joined;
}

}  // namespace morvane
