#pragma once

#include <cstdint>
#include <string_view>

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"

namespace morvane {

class CDC;

/// The fonts and the colour of a chart's texts. A view takes them from the defaults when it shows
/// its chart first, and keeps them.
class ChartLook {
 public:
  void TakeDefaults();
  const CFont& NormalFont() const { return font; }
  const CFont& BoldFont() const { return boldFont; }
  COLORREF TextColour() const { return textColour; }
  /// Sets a text into a rectangle in logical units, broken at words and cut off at the rectangle.
  void DrawText(CDC& dc, std::string_view text, const RECT& area) const;
  /// The size of a text that is broken at words to a width, logical units.
  static SIZE Measure(std::string_view text, std::int32_t width, const CFont& letters);

 private:
  CFont font;
  CFont boldFont;
  COLORREF textColour = 0;
};

}  // namespace morvane
