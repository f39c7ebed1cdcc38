#include "machine/Identifier.h"

#include <array>
#include <cstdint>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr std::uint32_t kFirstAccented = 0xC0;
constexpr std::uint32_t kFirstExtended = 0x100;
constexpr std::uint32_t kTimes = 0xD7;
constexpr std::uint32_t kDivided = 0xF7;

constexpr std::array<const char*, 64> kLatin1 = {
    "A", "A", "A", "A", "Ae", "Aa", "Ae", "C", "E",  "E", "E", "E", "I",  "I", "I",  "I",
    "D", "N", "O", "O", "O",  "O",  "Oe", "",  "Oe", "U", "U", "U", "Ue", "Y", "Th", "ss",
    "a", "a", "a", "a", "ae", "aa", "ae", "c", "e",  "e", "e", "e", "i",  "i", "i",  "i",
    "d", "n", "o", "o", "o",  "o",  "oe", "",  "oe", "u", "u", "u", "ue", "y", "th", "y"};

/// The base letters from 0x100 to 0x17F.
constexpr std::string_view kExtended =
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlLlLlNnNnNnnNnOoOoOoOoRrRrRrSs"
    "SsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(kExtended.size() == 128);

bool IsLetterOrDigit(std::uint32_t c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsForeignLetter(std::uint32_t c) {
  constexpr std::uint32_t firstSign = 0x2000;
  constexpr std::uint32_t lastSign = 0x2BFF;
  return c >= kFirstAccented && c != kTimes && c != kDivided && (c < firstSign || c > lastSign);
}

/// A mark that stands above or below the letter before it.
bool IsCombining(std::uint32_t c) { return c >= 0x300 && c <= 0x36F; }

/// Empty for what has no counterpart.
std::string Base(std::uint32_t c) {
  constexpr std::uint32_t capitalOe = 0x152;
  constexpr std::uint32_t smallOe = 0x153;
  constexpr std::uint32_t capitalSharpS = 0x1E9E;
  if (IsLetterOrDigit(c)) return {static_cast<char>(c)};
  if (c == capitalOe) return "Oe";
  if (c == smallOe) return "oe";
  if (c == capitalSharpS) return "SS";
  if (c >= kFirstExtended && c < kFirstExtended + kExtended.size()) {
    return {kExtended[c - kFirstExtended]};
  }
  if (c >= kFirstAccented && c < kFirstExtended) return kLatin1[c - kFirstAccented];
  return {};
}

template <class Visit>
void ForEachCodePoint(std::string_view utf8, const Visit& visit) {
  for (std::size_t at = 0; at < utf8.size();) {
    const CodePoint point = DecodeUtf8(utf8, at);
    visit(point.value);
    at += point.length > 0 ? point.length : 1;
  }
}

}  // namespace

bool Identifier::IsSound(std::string_view text) {
  return !text.empty() && Clean(text, '_') == text;
}

bool Identifier::IsAlmostSound(std::string_view utf8) {
  constexpr std::string_view joints = " \t-._";
  bool sound = !utf8.empty();
  ForEachCodePoint(utf8, [&](std::uint32_t c) {
    const bool joins = c < 0x80 && joints.find(static_cast<char>(c)) != std::string_view::npos;
    if (!joins && !IsLetterOrDigit(c) && !IsForeignLetter(c)) sound = false;
  });
  return sound;
}

std::string Identifier::Clean(std::string_view utf8, char prefix) {
  std::string name;
  bool gap = false;
  ForEachCodePoint(utf8, [&](std::uint32_t c) {
    if (IsCombining(c)) return;
    const std::string base = Base(c);
    if (base.empty()) {
      gap = true;
      return;
    }
    if (gap && !name.empty()) name += '_';
    gap = false;
    name += base;
  });
  const bool beginsWithDigit = !name.empty() && name.front() >= '0' && name.front() <= '9';
  return beginsWithDigit ? prefix + name : name;
}

}  // namespace morvane
