#include "drawing/Utf16.h"

#include <cmath>

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"

namespace morvane {

namespace {
constexpr std::uint32_t kFirstPair = 0x10000;
/// Lines up to this length are measured as a whole, bytes, and longer ones by pieces.
constexpr std::size_t kLongLine = 512;
constexpr std::size_t kPiece = 32;
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
  std::int32_t before = 0;
  double width = 0;
  while (!utf8.empty()) {
    // The beginnings of a whole long line would take a time that grows with its square.
    std::string_view piece = utf8.size() > kLongLine ? Utf8Prefix(utf8, kPiece) : utf8;
    if (piece.empty()) break;
    for (std::size_t at = 0; at < piece.size();) {
      const auto [point, length] = DecodeUtf8(piece, at);
      if (length == 0) return advances;
      at += length;
      constexpr double rounding = 1e-6;
      const double reached = std::ceil(width + dc.GetTextAdvance(piece.substr(0, at)) - rounding);
      const std::int32_t after = Saturate(static_cast<std::int64_t>(reached));
      advances.push_back(SubSat(after, before));
      if (point >= kFirstPair) advances.push_back(0);
      before = after;
    }
    width += dc.GetTextAdvance(piece);
    utf8.remove_prefix(piece.size());
  }
  return advances;
}

}  // namespace morvane
