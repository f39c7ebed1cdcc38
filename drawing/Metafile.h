#pragma once

#include <string>
#include <vector>

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"

namespace morvane {

/// A finished recording of drawing calls, as plain data in logical units. Each record carries the
/// attributes that it was drawn with.
class Metafile {
 public:
  enum class Kind {
    Polyline,
    Polygon,
    Rectangle,
    RoundRect,
    Ellipse,
    Arc,
    FillRect,
    FillMask,
    TextOut
  };

  struct Record {
    Kind kind = Kind::Polyline;
    CPen pen;
    CBrush brush;
    COLORREF textColor = 0;
    int font = -1;              ///< index into `fonts`, for TextOut alone
    std::vector<POINT> points;  ///< the points of a line or polygon, start and end of an arc, the
                                ///< place of a text or mask
    RECT rect;                  ///< of a shape or fill; the clip of a text
    SIZE corner;                ///< of a RoundRect
    bool clipped = false;       ///< a text is cut off at `rect`
    std::string text;
    BitMask mask;
  };

  /// Moves all that is drawn, logical units.
  void MoveBy(POINT offset);

  std::vector<Record> records;
  std::vector<CFont> fonts;
};

}  // namespace morvane
