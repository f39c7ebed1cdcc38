#include "drawing/PlainTextBreaks.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

struct Range {
  std::uint32_t first;
  std::uint32_t last;
};

bool IsIn(std::span<const Range> ranges, std::uint32_t point) {
  const auto behind = std::ranges::upper_bound(ranges, point, {}, &Range::first);
  return behind != ranges.begin() && point <= std::prev(behind)->last;
}

/// What stands on, in or beside the letter before it.
constexpr auto kMarks = std::to_array<Range>(
    {{0x0300, 0x036F},   {0x0483, 0x0489},  {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2},
     {0x05C4, 0x05C5},   {0x05C7, 0x05C7},  {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
     {0x06D6, 0x06DC},   {0x06DF, 0x06E4},  {0x06E7, 0x06E8}, {0x06EA, 0x06ED}, {0x0E31, 0x0E31},
     {0x0E33, 0x0E3A},   {0x0E47, 0x0E4E},  {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200C, 0x200D},
     {0x20D0, 0x20FF},   {0x3099, 0x309A},  {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0x1F3FB, 0x1F3FF},
     {0xE0020, 0xE007F}, {0xE0100, 0xE01EF}});

/// The scripts of India have their marks at the same places of their blocks.
constexpr Range kIndian{0x0900, 0x0DFF};
constexpr std::uint32_t kIndianBlock = 0x80;
constexpr auto kIndianMarks =
    std::to_array<Range>({{0x00, 0x03}, {0x3A, 0x3C}, {0x3E, 0x4F}, {0x51, 0x57}, {0x62, 0x63}});

/// Signs that are set one by one.
constexpr auto kIdeographs = std::to_array<Range>({{0x2E80, 0x2FFF},
                                                   {0x3003, 0x3007},
                                                   {0x3021, 0xA4CF},
                                                   {0xAC00, 0xD7AF},
                                                   {0xF900, 0xFAFF},
                                                   {0xFF01, 0xFF60},
                                                   {0x20000, 0x3FFFF}});

/// What never begins a line: closing signs, small kana and marks of length.
constexpr auto kClosing = std::to_array<Range>(
    {{0x3001, 0x3002}, {0x3005, 0x3005}, {0x3009, 0x3009}, {0x300B, 0x300B}, {0x300D, 0x300D},
     {0x300F, 0x300F}, {0x3011, 0x3011}, {0x3015, 0x3015}, {0x3017, 0x3017}, {0x3041, 0x3041},
     {0x3043, 0x3043}, {0x3045, 0x3045}, {0x3047, 0x3047}, {0x3049, 0x3049}, {0x3063, 0x3063},
     {0x3083, 0x3083}, {0x3085, 0x3085}, {0x3087, 0x3087}, {0x309B, 0x309E}, {0x30A1, 0x30A1},
     {0x30A3, 0x30A3}, {0x30A5, 0x30A5}, {0x30A7, 0x30A7}, {0x30A9, 0x30A9}, {0x30C3, 0x30C3},
     {0x30E3, 0x30E3}, {0x30E5, 0x30E5}, {0x30E7, 0x30E7}, {0x30FB, 0x30FE}, {0xFF01, 0xFF01},
     {0xFF09, 0xFF09}, {0xFF0C, 0xFF0C}, {0xFF0E, 0xFF0E}, {0xFF1A, 0xFF1B}, {0xFF1F, 0xFF1F},
     {0xFF3D, 0xFF3D}, {0xFF5D, 0xFF5D}, {0xFF60, 0xFF61}});

/// What never ends a line.
constexpr auto kOpening = std::to_array<Range>({{0x3008, 0x3008},
                                                {0x300A, 0x300A},
                                                {0x300C, 0x300C},
                                                {0x300E, 0x300E},
                                                {0x3010, 0x3010},
                                                {0x3014, 0x3014},
                                                {0x3016, 0x3016},
                                                {0xFF08, 0xFF08},
                                                {0xFF3B, 0xFF3B},
                                                {0xFF5B, 0xFF5B}});

constexpr std::uint32_t kJoiner = 0x200D;
constexpr std::uint32_t kBreakHere = 0x200B;
constexpr std::uint32_t kWideBlank = 0x3000;
constexpr Range kFlagHalves{0x1F1E6, 0x1F1FF};

bool IsMark(std::uint32_t point) {
  if (point >= kIndian.first && point <= kIndian.last)
    return IsIn(kIndianMarks, point % kIndianBlock);
  return IsIn(kMarks, point);
}

bool IsFlagHalf(std::uint32_t point) {
  return point >= kFlagHalves.first && point <= kFlagHalves.last;
}

bool MayEndLine(std::uint32_t before, std::uint32_t behind) {
  if (before == kBreakHere || before == kWideBlank) return true;
  if (IsIn(kClosing, behind) || IsIn(kOpening, before)) return false;
  if (behind == kBreakHere || behind == kWideBlank) return false;
  return IsIn(kIdeographs, before) || IsIn(kIdeographs, behind) || IsIn(kClosing, before) ||
         IsIn(kOpening, behind);
}

}  // namespace

std::vector<std::size_t> PlainTextBreaks::LetterBreaks(std::string_view utf8) const {
  std::vector<std::size_t> places;
  std::uint32_t before = 0;
  bool halfFlag = false;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto [point, length] = DecodeUtf8(utf8, at);
    if (length == 0) break;
    const bool endsFlag = halfFlag && IsFlagHalf(point);
    const bool joins =
        IsMark(point) || before == kJoiner || endsFlag || (before == '\r' && point == '\n');
    if (at > 0 && !joins) places.push_back(at);
    halfFlag = IsFlagHalf(point) && !endsFlag;
    before = point;
    at += length;
  }
  return places;
}

std::vector<std::size_t> PlainTextBreaks::LineBreaks(std::string_view utf8) const {
  std::vector<std::size_t> places;
  std::size_t letter = 0;
  for (const std::size_t place : LetterBreaks(utf8)) {
    if (MayEndLine(DecodeUtf8(utf8, letter).value, DecodeUtf8(utf8, place).value)) {
      places.push_back(place);
    }
    letter = place;
  }
  return places;
}

}  // namespace morvane
