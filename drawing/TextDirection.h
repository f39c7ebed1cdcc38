#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// The way in which a text runs: that of its first letter that has one.
enum class TextDirection { LeftToRight, RightToLeft };

/// The direction of a paragraph or a line of valid UTF-8; left to right if no letter tells.
TextDirection DirectionOf(std::string_view utf8);
/// Whether a text may have letters that run from right to left; a quick answer, on the safe side.
bool MayRunRightToLeft(std::string_view utf8);
/// Whether a letter runs from right to left by itself.
bool RunsRightToLeft(std::uint32_t codePoint);
/// Whether a sign shows nothing and tells the direction of others.
bool IsDirectionMark(std::uint32_t codePoint);
/// A line of a paragraph that runs in a direction, with a mark in front that shows nothing where
/// the line alone would run in the other.
std::string InDirection(std::string_view line, TextDirection paragraph);

}  // namespace morvane
