#pragma once

#include <functional>
#include <span>

#include "drawing/Geometry.h"

namespace morvane {

class CDC;

/// Paints a route with rounded corners and an arrow head in the pen of a context. The points of the
/// route are in model units; a conversion takes them to the units of the context.
class RoutePainter {
 public:
  using Conversion = std::function<POINT(POINT)>;

  /// How far the ends of a route go on beyond their points, in the units of the context.
  struct Reach {
    POINT source;
    POINT tip;
  };

  RoutePainter(CDC& dc, Conversion convert, const Reach& reach = {});

  /// At least three points: the source, the corners, the tip.
  void Paint(std::span<const POINT> route);

  /// The point as far behind the stub point as the tip lies ahead of it.
  static POINT ArrowBase(POINT stub, POINT tip) { return stub - (tip - stub); }
  /// Half the width of the arrow head, in the units that model points are converted to.
  static std::int32_t ArrowHalfWidth(const Conversion& convert);
  /// The point from which a corner is rounded: on the way from `from`, one model unit short of it.
  /// On a way of one unit, and on a slant, the corner itself.
  static POINT PointBefore(POINT from, POINT corner);
  /// Joins a to b by a quarter of an ellipse around the corner c, in the units of the context.
  static void DrawCorner(CDC& dc, POINT a, POINT c, POINT b);

 private:
  bool IsVisible(POINT a, POINT b) const;
  void Line(POINT from, POINT to);
  void PaintArrow(POINT base, POINT tip);

  CDC& dc;
  Conversion convert;
  Reach reach;
  RECT clip;
};

}  // namespace morvane
