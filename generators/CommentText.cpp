#include "generators/CommentText.h"

#include <cstdint>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

bool TurnsDirection(std::uint32_t c) {
  return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0x200E || c == 0x200F;
}

bool IsControl(std::uint32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

/// A line break of some language, which would end a comment of one line.
bool BreaksLine(std::uint32_t c) { return c == '\n' || c == 0x85 || c == 0x2028 || c == 0x2029; }

void Append(std::string& line, std::uint32_t c) {
  if (c == '\t') c = ' ';
  if (TurnsDirection(c) || IsControl(c)) return;
  // Neither an end nor a beginning of a comment, nor an escape of a character in Java
  const bool joins =
      !line.empty() && ((line.back() == '*' && c == '/') || (line.back() == '/' && c == '*') ||
                        (line.back() == '\\' && c == 'u'));
  if (joins) line += ' ';
  AppendUtf8(line, c);
}

void TrimEnd(std::string& line) {
  // A backslash would go on with the comment in the next line.
  line.erase(line.find_last_not_of(" \\") + 1);
}

}  // namespace

std::vector<std::string> CommentLines(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  std::vector<std::string> lines(1);
  for (std::size_t at = 0; at < utf8.size();) {
    const CodePoint c = DecodeUtf8(utf8, at);
    if (c.length == 0) break;
    at += c.length;
    if (BreaksLine(c.value)) {
      lines.emplace_back();
    } else {
      Append(lines.back(), c.value);
    }
  }
  for (std::string& line : lines) TrimEnd(line);
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

std::string CommentLine(std::string_view text) {
  std::string joined;
  for (const std::string& line : CommentLines(text)) {
    if (!joined.empty() && !line.empty()) joined += ' ';
    joined += line;
  }
  return joined;
}

}  // namespace morvane
