#include "drawing/TextDirection.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

struct Range {
  std::uint32_t first;
  std::uint32_t last;
};

/// The first byte of the first letter that runs from right to left.
constexpr unsigned char kFirstLead = 0xD6;
constexpr std::uint32_t kLeftToRightMark = 0x200E;
constexpr std::uint32_t kRightToLeftMark = 0x200F;

/// Blocks whose letters run from right to left.
constexpr auto kRightToLeft = std::to_array<Range>({{0x0590, 0x08FF},
                                                    {kRightToLeftMark, kRightToLeftMark},
                                                    {0xFB1D, 0xFDFF},
                                                    {0xFE70, 0xFEFC},
                                                    {0x10800, 0x10FFF},
                                                    {0x1E800, 0x1EFFF}});
/// Digits, signs and marks, in order, which take the direction of what is around them.
constexpr auto kNeutral = std::to_array<Range>(
    {{0x0000, 0x0040},   {0x005B, 0x0060},   {0x007B, 0x00A9},  {0x00AB, 0x00B4}, {0x00B6, 0x00B9},
     {0x00BB, 0x00BF},   {0x00D7, 0x00D7},   {0x00F7, 0x00F7},  {0x02B9, 0x02BA}, {0x02C2, 0x02CF},
     {0x02D2, 0x02DF},   {0x0300, 0x036F},   {0x0483, 0x0489},  {0x0591, 0x05BD}, {0x05BF, 0x05BF},
     {0x05C1, 0x05C2},   {0x05C4, 0x05C5},   {0x05C7, 0x05C7},  {0x0600, 0x0607}, {0x0609, 0x060A},
     {0x060C, 0x060C},   {0x060E, 0x061A},   {0x064B, 0x066C},  {0x0670, 0x0670}, {0x06D6, 0x06E4},
     {0x06E7, 0x06ED},   {0x06F0, 0x06F9},   {0x0711, 0x0711},  {0x0730, 0x074A}, {0x2000, 0x200D},
     {0x2010, 0x2070},   {0x2074, 0x207E},   {0x2080, 0x208E},  {0x20A0, 0x20FF}, {0x2190, 0x2335},
     {0x237B, 0x2394},   {0x2396, 0x249B},   {0x24EA, 0x26AB},  {0x26AD, 0x27FF}, {0x2900, 0x2BFF},
     {0x2E00, 0x2E7F},   {0x3000, 0x3004},   {0x3008, 0x3020},  {0x3099, 0x309C}, {0x30A0, 0x30A0},
     {0x30FB, 0x30FB},   {0xFE00, 0xFE6F},   {0xFF01, 0xFF20},  {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65},
     {0x1F000, 0x1F0FF}, {0x1F300, 0x1FAFF}, {0xE0001, 0xE01EF}});

/// Signs that show nothing and tell the direction of others.
constexpr auto kMarks = std::to_array<Range>(
    {{0x061C, 0x061C}, {kLeftToRightMark, kRightToLeftMark}, {0x202A, 0x202E}, {0x2066, 0x2069}});

bool IsIn(const auto& ranges, std::uint32_t point) {
  const auto behind = std::ranges::upper_bound(ranges, point, {}, &Range::first);
  return behind != ranges.begin() && point <= std::prev(behind)->last;
}

std::optional<TextDirection> FirstDirection(std::string_view utf8) {
  for (std::size_t at = 0; at < utf8.size();) {
    const auto [point, length] = DecodeUtf8(utf8, at);
    if (length == 0) break;
    at += length;
    if (IsIn(kNeutral, point)) continue;
    return IsIn(kRightToLeft, point) ? TextDirection::RightToLeft : TextDirection::LeftToRight;
  }
  return std::nullopt;
}

}  // namespace

TextDirection DirectionOf(std::string_view utf8) {
  return FirstDirection(utf8).value_or(TextDirection::LeftToRight);
}

bool MayRunRightToLeft(std::string_view utf8) {
  return std::ranges::any_of(utf8,
                             [](char c) { return static_cast<unsigned char>(c) >= kFirstLead; });
}

bool RunsRightToLeft(std::uint32_t codePoint) {
  return IsIn(kRightToLeft, codePoint) && !IsIn(kNeutral, codePoint);
}

bool IsDirectionMark(std::uint32_t codePoint) { return IsIn(kMarks, codePoint); }

std::string InDirection(std::string_view line, TextDirection paragraph) {
  std::string directed;
  const TextDirection own = DirectionOf(line);
  if (own != paragraph) {
    const bool turned = paragraph == TextDirection::RightToLeft;
    AppendUtf8(directed, turned ? kRightToLeftMark : kLeftToRightMark);
  }
  return directed.append(line);
}

}  // namespace morvane
