#pragma once

#include <optional>

#include <QPointF>
#include <QPolygonF>
#include <QRectF>

namespace morvane {

/// The part of a line that lies in a box, as fractions of its length.
struct LinePart {
  double from = 0;
  double to = 1;
};

/// Cuts the line from `a` to `b` at the box (edges included). Nothing if it misses the box.
std::optional<LinePart> ClipLine(QPointF a, QPointF b, const QRectF& box);
/// The part of a polygon inside the box, as one polygon.
QPolygonF ClipPolygon(const QPolygonF& polygon, const QRectF& box);

}  // namespace morvane
