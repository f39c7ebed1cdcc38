#pragma once

#include <string>

#include "drawing/Geometry.h"

namespace morvane {

class ChartView;

/// Lets a box grow with the text that is typed into it, for as long as it has a size of its own
/// accord: that of a new one, or one that it has grown to. A size that the user gave it stays, and
/// nothing shrinks. Sizes are in model units, room in logical units.
class TextFit {
 public:
  /// The rectangle of a new box, and how much of its width and height is no room for text.
  TextFit(const RECT& first, SIZE margins);

  /// The user has not sized a box that shows a text.
  bool IsAutomatic(const ChartView& view, const RECT& box, const std::string& text) const;
  /// The box, grown to the right and downwards as far as a text asks for.
  RECT Grow(const ChartView& view, const RECT& box, const std::string& text);

 private:
  SIZE SizeFor(const ChartView& view, const std::string& text) const;

  SIZE first;
  SIZE margins;
  SIZE grown;  ///< what it grew to last
};

}  // namespace morvane
