#include "drawing/qt/LineClip.h"

#include <array>

namespace morvane {

namespace {

/// Narrows the part to where `start + t * direction` is not above `limit`.
bool NarrowBelow(double start, double direction, double limit, LinePart& part) {
  if (direction == 0) return start <= limit;
  const double t = (limit - start) / direction;
  if (direction > 0) {
    part.to = std::min(part.to, t);
  } else {
    part.from = std::max(part.from, t);
  }
  return part.from <= part.to;
}

/// One edge of a box as a half plane: sign * coordinate <= limit.
struct HalfPlane {
  bool vertical;
  double sign;
  double limit;
  double Excess(QPointF p) const { return sign * (vertical ? p.y() : p.x()) - limit; }
};

QPolygonF ClipAt(const QPolygonF& polygon, const HalfPlane& plane) {
  QPolygonF result;
  result.reserve(polygon.size() + 4);
  for (qsizetype i = 0; i < polygon.size(); ++i) {
    const QPointF a = polygon[i];
    const QPointF b = polygon[(i + 1) % polygon.size()];
    const double excessA = plane.Excess(a);
    const double excessB = plane.Excess(b);
    if (excessA <= 0) result << a;
    if ((excessA < 0 && excessB > 0) || (excessA > 0 && excessB < 0)) {
      result << a + (b - a) * (excessA / (excessA - excessB));
    }
  }
  return result;
}

}  // namespace

std::optional<LinePart> ClipLine(QPointF a, QPointF b, const QRectF& box) {
  LinePart part;
  const QPointF d = b - a;
  if (!NarrowBelow(a.x(), d.x(), box.right(), part)) return std::nullopt;
  if (!NarrowBelow(-a.x(), -d.x(), -box.left(), part)) return std::nullopt;
  if (!NarrowBelow(a.y(), d.y(), box.bottom(), part)) return std::nullopt;
  if (!NarrowBelow(-a.y(), -d.y(), -box.top(), part)) return std::nullopt;
  return part;
}

QPolygonF ClipPolygon(const QPolygonF& polygon, const QRectF& box) {
  const std::array<HalfPlane, 4> edges{
      HalfPlane{false, -1, -box.left()}, HalfPlane{false, 1, box.right()},
      HalfPlane{true, -1, -box.top()}, HalfPlane{true, 1, box.bottom()}};
  QPolygonF result = polygon;
  for (const HalfPlane& edge : edges) {
    if (result.isEmpty()) break;
    result = ClipAt(result, edge);
  }
  return result;
}

}  // namespace morvane
