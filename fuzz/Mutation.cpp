#include "fuzz/Mutation.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace morvane {

namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
    lines.push_back(text.substr(start, end - start));
    start = end;
  }
  return lines;
}

}  // namespace

std::size_t Mutation::Below(std::size_t limit) { return limit == 0 ? 0 : random() % limit; }

std::string Mutation::Damage(std::string text) {
  // One damage is what most files show that still open.
  constexpr std::size_t most = 4;
  for (std::size_t left = Below(3) == 0 ? Below(most) + 1 : 1; left > 0; --left) Once(text);
  return text;
}

void Mutation::Once(std::string& text) {
  switch (Below(16)) {
    case 0: text.resize(Below(text.size() + 1)); break;
    case 1:
    case 2:
    case 3: FlipBytes(text); break;
    case 4: InsertBytes(text); break;
    case 5:
    case 6:
    case 7: MoveLines(text); break;
    default: PutExtremeNumber(text);
  }
}

void Mutation::FlipBytes(std::string& text) {
  constexpr std::size_t most = 3;
  for (std::size_t left = Below(most) + 1; left > 0 && !text.empty(); --left) {
    char& byte = text[Below(text.size())];
    byte = static_cast<char>(Below(2) == 0 ? byte ^ (1 << Below(8)) : static_cast<int>(Below(256)));
  }
}

void Mutation::InsertBytes(std::string& text) {
  constexpr std::array<std::string_view, 7> pieces{
      "\n", "\r\n", std::string_view("\0", 1), "\xE9", " ", "END DATA\r\n", "BEGIN Line 7\r\n"};
  text.insert(Below(text.size() + 1), pieces[Below(pieces.size())]);
}

void Mutation::MoveLines(std::string& text) {
  std::vector<std::string> lines = LinesOf(text);
  if (lines.empty()) return;
  const std::size_t at = Below(lines.size());
  const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
  switch (Below(3)) {
    case 0: std::swap(lines[at], lines[Below(lines.size())]); break;
    case 1: {
      // A whole record may come again, with the id that it has.
      constexpr std::size_t most = 20;
      const auto count = static_cast<std::ptrdiff_t>(std::min(Below(most) + 1, lines.size() - at));
      const std::vector<std::string> again(place, place + count);
      lines.insert(place, again.begin(), again.end());
      break;
    }
    default: lines.erase(place);
  }
  text.clear();
  for (const std::string& line : lines) text += line;
}

void Mutation::PutExtremeNumber(std::string& text) {
  constexpr std::array<const char*, 12> numbers{
      "2147483647", "-2147483648", "99999999999", "0",   "-1",   "65535",
      "65536",      "32767",       "-32768",      "1e9", "1500", "4294967295"};
  constexpr std::string_view digits = "0123456789";
  const std::size_t start = text.find_first_of(digits, Below(text.size() + 1));
  if (start == std::string::npos) return;
  const std::size_t end = std::min(text.find_first_not_of(digits, start), text.size());
  text.replace(start, end - start, numbers[Below(numbers.size())]);
}

}  // namespace morvane
