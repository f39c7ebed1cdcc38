#include "drawing/TextBreaks.h"

#include <algorithm>
#include <utility>

#include "drawing/PlainTextBreaks.h"
#include "drawing/TextCodec.h"

namespace morvane {

namespace {

const TextBreaks* current = nullptr;

/// So far around a place is looked for the ends of its letter, bytes.
constexpr std::size_t kReach = 512;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Where a code point begins, at a place or before it.
std::size_t CodePointStart(std::string_view utf8, std::size_t at) {
  return Utf8Prefix(utf8, at).size();
}

/// A place before another from which letters can be counted: in front of a letter of ASCII, which
/// never joins what stands before it.
std::size_t SafeStart(std::string_view utf8, std::size_t at) {
  const std::size_t least = at - std::min(at, kReach);
  for (std::size_t i = at; i > least; --i) {
    if (IsAscii(utf8[i - 1])) return i - 1;
  }
  return CodePointStart(utf8, least);
}

}  // namespace

const TextBreaks& TextBreaks::Current() {
  static const PlainTextBreaks plain;
  if (current != nullptr) return *current;
  return plain;
}

const TextBreaks* TextBreaks::Use(const TextBreaks* other) { return std::exchange(current, other); }

std::string_view LetterPrefix(std::string_view utf8, std::size_t limit) {
  if (utf8.size() <= limit) return utf8;
  if (limit > 0 && IsAscii(utf8[limit - 1]) && IsAscii(utf8[limit])) return utf8.substr(0, limit);
  const std::size_t start = SafeStart(utf8, limit);
  const std::string_view around = Utf8Prefix(utf8.substr(start), limit - start + kReach);
  std::size_t end = start;
  for (const std::size_t place : TextBreaks::Current().LetterBreaks(around)) {
    if (start + place > limit) break;
    end = start + place;
  }
  return end > 0 ? utf8.substr(0, end) : Utf8Prefix(utf8, limit);
}

std::string_view WithoutLetters(std::string_view utf8, std::size_t limit) {
  return utf8.substr(LetterPrefix(utf8, limit).size());
}

}  // namespace morvane
