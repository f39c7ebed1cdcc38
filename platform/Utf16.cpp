#include "drawing/Utf16.h"

#include "drawing/CDC.h"

namespace {

/// The length of the sequence that begins with this byte, and its bits in the lead byte.
std::size_t LengthOf(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xE0) return 2;
  return lead < 0xF0 ? 3 : 4;
}

std::uint32_t CodePointAt(std::string_view utf8, std::size_t at, std::size_t length) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[at + i]); };
  if (length == 1) return byte(0);
  std::uint32_t point = byte(0) & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) point = point << 6 | (byte(i) & 0x3FU);
  return point;
}

constexpr std::uint32_t kFirstPair = 0x10000;

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string units;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t length =
        std::min(LengthOf(static_cast<unsigned char>(utf8[at])), utf8.size() - at);
    const std::uint32_t point = CodePointAt(utf8, at, length);
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
  std::int32_t before = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t length =
        std::min(LengthOf(static_cast<unsigned char>(utf8[at])), utf8.size() - at);
    const std::uint32_t point = CodePointAt(utf8, at, length);
    at += length;
    const std::int32_t width = dc.GetTextExtent(utf8.substr(0, at)).cx;
    advances.push_back(SubSat(width, before));
    if (point >= kFirstPair) advances.push_back(0);
    before = width;
  }
  return advances;
}
