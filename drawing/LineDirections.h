#pragma once

#include <string_view>

#include "drawing/TextDirection.h"

namespace morvane {

/// The directions of the lines of a text, which are those of their paragraphs.
class LineDirections {
 public:
  /// The text, valid UTF-8, outlives this object.
  explicit LineDirections(std::string_view utf8) : utf8(utf8) {}

  /// The direction of a line, a view into the text. The lines are asked for one after another.
  TextDirection Of(std::string_view line);

 private:
  std::string_view utf8;
  std::string_view paragraph;  ///< of the line that was asked for last
  TextDirection direction = TextDirection::LeftToRight;
};

}  // namespace morvane
