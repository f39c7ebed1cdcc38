#pragma once

#include <string_view>

#include "drawing/TextDirection.h"

namespace morvane {

/// A part of a line whose letters all run in one direction, and where it is painted.
struct TextRun {
  std::string_view text;  ///< without marks of direction at its ends, which have done their work
  TextDirection direction = TextDirection::LeftToRight;
  double left = 0;   ///< of its leftmost letter, from the left edge of the line, logical units
  double width = 0;  ///< logical units

  /// A mark that shows nothing, or none: what other programs need in front of the text, and behind
  /// it, so that signs without a direction at its ends run as its letters do.
  std::string_view MarkBefore() const;
  std::string_view MarkBehind() const;
};

}  // namespace morvane
