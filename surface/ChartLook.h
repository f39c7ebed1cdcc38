#pragma once

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
  const CFont& BoldFont() const { return boldFont; }
  COLORREF TextColour() const { return textColour; }
  /// Sets a text into a rectangle in logical units, broken at words and cut off at the rectangle.
  void DrawText(CDC& dc, std::string_view text, const RECT& area) const;

 private:
  CFont font;
  CFont boldFont;
  COLORREF textColour = 0;
};

}  // namespace morvane
