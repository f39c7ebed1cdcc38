#include "model/ShapeGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "model/AnchorKey.h"

namespace morvane {

std::int32_t RoundHalfAway(double x) {
  constexpr double low = std::numeric_limits<std::int32_t>::min();
  constexpr double high = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(x < 0 ? x - 0.5 : x + 0.5, low, high));
}

POINT StepPoint(POINT p, std::uint16_t side) {
  switch (side) {
    case SIDE_TOP: return {p.x, SubSat(p.y, 1)};
    case SIDE_RIGHT: return {AddSat(p.x, 1), p.y};
    case SIDE_BOTTOM: return {p.x, AddSat(p.y, 1)};
    case SIDE_LEFT: return {SubSat(p.x, 1), p.y};
    default: return p;
  }
}

CRgn MakeSegmentRegion(POINT from, POINT to, double halfWidth) {
  const double dx = static_cast<double>(from.x) - to.x;
  const double dy = static_cast<double>(from.y) - to.y;
  const double length = std::sqrt(dx * dx + dy * dy);
  if (length == 0) return {};
  const std::int32_t a = RoundHalfAway(dy / length * halfWidth);
  const std::int32_t b = RoundHalfAway(dx / length * halfWidth);
  const std::array<POINT, 5> band{
      POINT{AddSat(from.x, a), SubSat(from.y, b)}, POINT{AddSat(to.x, a), SubSat(to.y, b)},
      POINT{SubSat(to.x, a), AddSat(to.y, b)}, POINT{SubSat(from.x, a), AddSat(from.y, b)},
      POINT{AddSat(from.x, a), SubSat(from.y, b)}};
  return CRgn::FromPolygon(band);
}

CRgn MakeRectRegion(POINT from, POINT to, std::int32_t grow) {
  return CRgn::FromRect(InflateRect(NormalizeRect({from.x, from.y, to.x, to.y}), grow));
}

void SidePoints(POINT p, POINT q, std::int32_t w, POINT& a, POINT& b) {
  a = p;
  b = p;
  if (p.y != q.y) {
    a.x = SubSat(p.x, w);
    b.x = AddSat(p.x, w);
  } else {
    a.y = SubSat(p.y, w);
    b.y = AddSat(p.y, w);
  }
}

CRgn MakeArrowRegion(POINT base, POINT tip, std::int32_t w) {
  POINT a;
  POINT b;
  SidePoints(base, tip, w, a, b);
  const std::array<POINT, 3> triangle{a, b, tip};
  return CRgn::FromPolygon(triangle);
}

POINT LowerPoint(POINT a, POINT b) {
  if (a.x == b.x) return a.y <= b.y ? a : b;
  if (a.y == b.y) return a.x <= b.x ? a : b;
  return a;
}

POINT HigherPoint(POINT a, POINT b) {
  if (a.x == b.x) return a.y > b.y ? a : b;
  if (a.y == b.y) return a.x > b.x ? a : b;
  return b;
}

bool SegmentCrossing(POINT p1, POINT p2, POINT p3, POINT p4, POINT& crossing) {
  const POINT a = LowerPoint(p1, p2);
  const POINT b = HigherPoint(p1, p2);
  const POINT c = LowerPoint(p3, p4);
  const POINT d = HigherPoint(p3, p4);
  if (c.x <= a.x) {
    if (a.x <= d.x && a.y <= c.y && b.y >= c.y) {
      crossing = {a.x, c.y};
      return true;
    }
    if (c.x < a.x) return false;
  }
  if (c.x > b.x) return false;
  if (c.y > a.y || d.y < a.y) return false;
  crossing = {c.x, a.y};
  return true;
}

}  // namespace morvane
