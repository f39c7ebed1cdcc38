#pragma once

#include <cstdint>

#include "drawing/CRgn.h"
#include "drawing/Geometry.h"

namespace morvane {

// Geometry that shapes share. The functions carry no unit of their own: points in give points out
// in the same unit.

/// x plus 0.5, or minus 0.5 below 0, truncated toward zero and limited to 32 bits.
std::int32_t RoundHalfAway(double x);

/// p moved one unit out of the side of an `AnchorKey`; an unknown side gives p.
POINT StepPoint(POINT p, std::uint16_t side);

/// A band of the given half width along a segment.
CRgn MakeSegmentRegion(POINT from, POINT to, double halfWidth);
/// The rectangle of two corners, grown on every side.
CRgn MakeRectRegion(POINT from, POINT to, std::int32_t grow);
/// a and b: p moved w to either side across the segment p q.
void SidePoints(POINT p, POINT q, std::int32_t w, POINT& a, POINT& b);
/// The triangle of the two side points of `base` and the tip.
CRgn MakeArrowRegion(POINT base, POINT tip, std::int32_t w);

/// Of a pair that shares x, the one with the lesser y; of a pair that shares y, the one with the
/// lesser x; of any other pair, a.
POINT LowerPoint(POINT a, POINT b);
/// The greater one in the same sense; of any other pair, b.
POINT HigherPoint(POINT a, POINT b);
/// The crossing of the axis-parallel segments p1 p2 and p3 p4.
bool SegmentCrossing(POINT p1, POINT p2, POINT p3, POINT p4, POINT& crossing);

}  // namespace morvane
