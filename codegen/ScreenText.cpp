#include "codegen/ScreenText.h"

#include <deque>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr char kCr = '\r';
constexpr char kLf = '\n';

/// How many bytes of a line without a break go on one line of the screen.
std::size_t CutPlace(std::string_view line) {
  const std::size_t place = Utf8Prefix(line, ScreenText::kLongestLine).size();
  return place != 0 ? place : ScreenText::kLongestLine;
}

/// Takes the first line off the front of the bytes. False if they hold only a part of one, or end
/// in a CR that an LF may follow.
bool TakeLine(std::string_view& bytes, std::string_view& line) {
  const std::string_view head = bytes.substr(0, ScreenText::kLongestLine + 1);
  const std::size_t end = head.find_first_of("\r\n");
  if (end == std::string_view::npos) {
    if (head.size() <= ScreenText::kLongestLine) return false;
    line = bytes.substr(0, CutPlace(bytes));
    bytes.remove_prefix(line.size());
    return true;
  }
  const std::size_t next = bytes.find_first_not_of(kCr, end);
  if (next == std::string_view::npos) return false;
  line = bytes.substr(0, end);
  bytes.remove_prefix(bytes[next] == kLf ? next + 1 : next);
  return true;
}

}  // namespace

std::string ScreenText::Add(std::string_view bytes) {
  const std::string all = unfinished.append(bytes);
  std::string_view rest = all;
  std::deque<std::string_view> lines;
  for (std::string_view line; TakeLine(rest, line);) {
    lines.push_back(line);
    if (lines.size() >= kMostLines) lines.pop_front();
  }
  // A CR that waits for its LF isn't kept in great numbers.
  unfinished = rest.substr(0, kLongestLine + 1);
  while (!rest.empty() && rest.back() == kCr) rest.remove_suffix(1);
  std::string text;
  for (const std::string_view line : lines) text += ToUtf8(line) + kLf;
  return text + ToUtf8(rest);
}

}  // namespace morvane
