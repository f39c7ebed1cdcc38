#include "connectors/RoutePainter.h"

#include <algorithm>
#include <utility>

#include "drawing/CDC.h"
#include "model/ShapeGeometry.h"

namespace morvane {

namespace {

/// Half the width of the arrow head, as a part of a model unit, in which its length is measured.
constexpr double kArrowHalfWidth = 4.0 / 6;
/// How far a stroke can reach beyond its points, in the units of the context.
constexpr std::int32_t kStrokeMargin = 2;

std::int32_t StepTowards(std::int32_t from, std::int32_t corner) {
  constexpr std::int64_t leastWay = 2;
  const std::int64_t way = std::int64_t{from} - corner;
  if (way >= leastWay) return corner + 1;
  return -way >= leastWay ? corner - 1 : corner;
}

}  // namespace

RoutePainter::RoutePainter(CDC& dc, Conversion convert, const Reach& reach)
    : dc(dc),
      convert(std::move(convert)),
      reach(reach),
      clip(InflateRect(dc.GetClipBox(), kStrokeMargin)) {}

void RoutePainter::Paint(std::span<const POINT> route) {
  // The stubs meet the route in sharp corners; those between are rounded.
  const std::size_t stub = route.size() - 2;
  POINT from = convert(route[1]);
  Line(convert(route[0]) + reach.source, from);
  for (std::size_t i = 2; i < stub; ++i) {
    const POINT corner = convert(route[i]);
    const POINT before = convert(PointBefore(route[i - 1], route[i]));
    const POINT behind = convert(PointBefore(route[i + 1], route[i]));
    Line(from, before);
    if (IsVisible(before, behind)) DrawCorner(dc, before, corner, behind);
    from = behind;
  }
  const POINT last = convert(route[stub]);
  const POINT tip = convert(route[stub + 1]);
  Line(from, last);
  Line(last, tip + reach.tip);
  PaintArrow(ArrowBase(last, tip) + reach.tip, tip + reach.tip);
}

bool RoutePainter::IsVisible(POINT a, POINT b) const {
  return std::min(a.x, b.x) <= clip.right && std::max(a.x, b.x) >= clip.left &&
         std::min(a.y, b.y) <= clip.bottom && std::max(a.y, b.y) >= clip.top;
}

void RoutePainter::Line(POINT from, POINT to) {
  if (from == to || !IsVisible(from, to)) return;
  dc.MoveTo(from);
  dc.LineTo(to);
}

std::int32_t RoutePainter::ArrowHalfWidth(const Conversion& convert) {
  const std::int32_t unit = SubSat(convert({1, 0}).x, convert({0, 0}).x);
  return std::max(RoundHalfAway(kArrowHalfWidth * unit), 1);
}

void RoutePainter::PaintArrow(POINT base, POINT tip) {
  POINT a;
  POINT b;
  SidePoints(base, tip, ArrowHalfWidth(convert), a, b);
  Line(a, tip);
  Line(tip, b);
}

POINT RoutePainter::PointBefore(POINT from, POINT corner) {
  if (from.y == corner.y) return {StepTowards(from.x, corner.x), corner.y};
  if (from.x == corner.x) return {corner.x, StepTowards(from.y, corner.y)};
  return corner;
}

void RoutePainter::DrawCorner(CDC& dc, POINT a, POINT c, POINT b) {
  if (c == b || a == c) {
    dc.MoveTo(a);
    dc.LineTo(b);
    return;
  }
  RECT box = NormalizeRect({a.x, a.y, b.x, b.y});
  if (IsRectEmpty(box)) return;
  const std::int32_t width = SubSat(box.right, box.left);
  const std::int32_t height = SubSat(box.bottom, box.top);
  // The box grows to that of the whole ellipse of which the arc is a quarter. An arc runs counter-
  // clockwise, so its ends are exchanged where the route turns the other way.
  POINT start = a;
  POINT end = b;
  if (a.x < c.x || b.x < c.x) {
    box.left = SubSat(box.left, width);
    if (a.y < b.y) std::swap(start, end);
  } else {
    box.right = AddSat(box.right, width);
    if (a.y > b.y) std::swap(start, end);
  }
  if (a.y > c.y || b.y > c.y) {
    box.bottom = AddSat(box.bottom, height);
  } else {
    box.top = SubSat(box.top, height);
  }
  dc.Arc(box, start, end);
}

}  // namespace morvane
