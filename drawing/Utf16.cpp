#include "drawing/Utf16.h"

#include <algorithm>

#include "drawing/CDC.h"
#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr std::uint32_t kFirstPair = 0x10000;
constexpr std::size_t kMeasuredAtOnce = 256;  // bytes

/// The letters of Arabic and of the scripts that are written like it join each other.
constexpr std::uint32_t kFirstJoining = 0x620;
constexpr std::uint32_t kLastJoining = 0x8FF;
constexpr std::string_view kJoiner = "\u200D";

bool Joins(std::string_view utf8, std::size_t at) {
  if (at >= utf8.size()) return false;
  const std::uint32_t point = DecodeUtf8(utf8, at).value;
  return point >= kFirstJoining && point <= kLastJoining;
}

/// The width of a line up to a place, with the last letter in the form that it has there.
std::int32_t WidthUpTo(std::string_view utf8, std::size_t at, const CDC& dc) {
  const std::string_view prefix = utf8.substr(0, at);
  if (!Joins(utf8, at)) return dc.GetTextExtent(prefix).cx;
  return dc.GetTextExtent(std::string(prefix).append(kJoiner)).cx;
}

void AppendAdvances(std::string_view utf8, const CDC& dc, std::vector<std::int32_t>& advances) {
  std::int32_t before = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto [point, length] = DecodeUtf8(utf8, at);
    if (length == 0) break;
    at += length;
    // A sign that goes into the letter before it can make that narrower.
    const std::int32_t width = std::max(before, WidthUpTo(utf8, at, dc));
    advances.push_back(SubSat(width, before));
    if (point >= kFirstPair) advances.push_back(0);
    before = width;
  }
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string units;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto [point, length] = DecodeUtf8(utf8, at);
    if (length == 0) break;
    if (point < kFirstPair) {
      units.push_back(static_cast<char16_t>(point));
    } else {
      units.push_back(static_cast<char16_t>(0xD800 + ((point - kFirstPair) >> 10)));
      units.push_back(static_cast<char16_t>(0xDC00 + ((point - kFirstPair) & 0x3FF)));
    }
    at += length;
  }
  return units;
}

std::vector<std::int32_t> Advances(std::string_view utf8, const CDC& dc) {
  std::vector<std::int32_t> advances;
  // Measured part by part, since each letter is measured with all that stands before it.
  while (!utf8.empty()) {
    const std::string_view prefix = LetterPrefix(utf8, kMeasuredAtOnce);
    const std::string_view part = prefix.empty() ? utf8 : prefix;
    AppendAdvances(part, dc, advances);
    utf8.remove_prefix(part.size());
  }
  return advances;
}

}  // namespace morvane
