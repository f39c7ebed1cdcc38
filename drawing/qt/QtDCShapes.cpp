#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include <QPainterPath>
#include <QTextLayout>
#include <QTextOption>

#include "drawing/qt/LineClip.h"
#include "drawing/qt/PixelRuns.h"
#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"

namespace morvane {

// Lines, shapes and letters of a context. "Far" are coordinates that Qt is not to see: they are
// cut down to the neighbourhood of the visible part first.

namespace {

/// Room around the visible part in which the ends of cut lines lie.
constexpr double kFarMargin = 64;
constexpr double kWidestPen = 2000;

bool IsUpright(const QPolygonF& points, bool closed) {
  const qsizetype count = points.size() - (closed ? 0 : 1);
  for (qsizetype i = 0; i < count; ++i) {
    const QPointF d = points[(i + 1) % points.size()] - points[i];
    if (d.x() != 0 && d.y() != 0) return false;
  }
  return true;
}

/// Half a pen's thickness back along a line, so that its first point is covered and its last not.
QPointF StepBack(QPointF from, QPointF to, double half) {
  const QPointF d = to - from;
  const double length = std::max(std::abs(d.x()), std::abs(d.y()));
  return length > 0 ? d * (-half / length) : QPointF();
}

/// Paints a line of text as it is laid out for a screen. A page of a finer resolution would set the
/// letters further apart.
void PaintLaidOut(QPainter& painter, QPointF baseline, const QFont& font, const QString& text) {
  constexpr double unlimited = 1e6;
  QTextLayout layout(text, font);
  // A line that runs from right to left begins at the left edge of its letters, too.
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (!line.isValid()) return;
  line.setLineWidth(unlimited);
  layout.endLayout();
  line.draw(&painter, baseline - QPointF(0, line.ascent()));
}

}  // namespace

bool QtDC::IsPenThin() const { return GetPen().width <= 1 || PenWidth() <= hairline; }

double QtDC::PenWidth() const {
  if (GetPen().width <= 1) return hairline;
  const double width = GetPen().width * GetMapping().Scale() * scale;
  return std::clamp<double>(std::round(width), hairline, kWidestPen);
}

std::vector<int> QtDC::DashLengths() const {
  std::vector<int> lengths;
  if (!IsPenThin()) return lengths;
  for (const int length : DashPatternOf(GetPen().style)) {
    lengths.push_back(std::max(1, static_cast<int>(std::lround(length * dot))));
  }
  return lengths;
}

QPen QtDC::StrokePen() const {
  const CPen& wanted = GetPen();
  if (wanted.style == PenStyle::Null) return QPen(Qt::NoPen);
  const bool thin = IsPenThin();
  QPen pen(QBrush(Ink(wanted.colour)), PenWidth(), Qt::SolidLine, thin ? Qt::FlatCap : Qt::RoundCap,
           thin ? Qt::MiterJoin : Qt::RoundJoin);
  const std::vector<int> dashes = DashLengths();
  if (!dashes.empty()) {
    QList<qreal> pattern;
    for (const int length : dashes) pattern << length / pen.widthF();
    pen.setDashPattern(pattern);
    pen.setCapStyle(Qt::FlatCap);
  }
  return pen;
}

void QtDC::PaintRuns(const PixelRuns& runs, QColor colour) {
  if (runs.IsEmpty()) return;
  SetMode(false);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRects(runs.Rects().data(), static_cast<int>(runs.Rects().size()));
}

void QtDC::Polyline(std::span<const POINT> points) {
  if (points.size() < 2 || GetPen().style == PenStyle::Null) return;
  QPolygonF physical;
  physical.reserve(static_cast<qsizetype>(points.size()));
  for (const POINT p : points) physical << ToPhysical(p);
  StrokeLines(std::move(physical), false);
}

void QtDC::StrokeLines(QPolygonF points, bool closed) {
  if (!page && IsPenThin() && (Inverts() || IsUpright(points, closed))) {
    const std::vector<int> dashes = DashLengths();
    PixelRuns runs(clipBox, hairline, dashes);
    const qsizetype count = points.size() - (closed ? 0 : 1);
    for (qsizetype i = 0; i < count; ++i) runs.AddLine(points[i], points[(i + 1) % points.size()]);
    PaintRuns(runs, Ink(GetPen().colour));
    return;
  }
  const QRectF box = points.boundingRect();
  const double width = PenWidth();
  if (Visible(box.adjusted(-width, -width, width + 1, width + 1)).isEmpty()) return;
  const double half = hairline / 2.0;
  points.translate(half, half);
  if (!page && !closed && IsPenThin()) {
    const qsizetype last = points.size() - 1;
    const QPointF start = StepBack(points[0], points[1], half);
    const QPointF end = StepBack(points[last - 1], points[last], half);
    points[0] += start;
    points[last] += end;
  }
  SetMode(!Inverts());
  const bool dashed = !page && IsPenThin() && GetPen().style != PenStyle::Solid;
  if (dashed || !IsNear(box)) {
    StrokeFarLines(points, closed);
    return;
  }
  painter.setPen(StrokePen());
  painter.setBrush(Qt::NoBrush);
  if (closed) {
    painter.drawPolygon(points);
  } else {
    painter.drawPolyline(points);
  }
}

/// Paints the dashes of a line between two distances from its start, each as an area of its own:
/// the toolkit's dashes and thin lines would depend on what is clipped away. `before` is the length
/// of the lines in front, over which the dashes run on.
void QtDC::StrokeDashes(const QLineF& line, double from, double to, double before) {
  const std::vector<int> lengths = DashLengths();
  const double total = std::accumulate(lengths.begin(), lengths.end(), 0.0);
  const QPointF direction = (line.p2() - line.p1()) / line.length();
  const QPointF aside = QPointF(-direction.y(), direction.x()) * (PenWidth() / 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Ink(GetPen().colour));
  double at = std::floor((before + from) / total) * total - before;
  while (at < to) {
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      const double start = std::max(at, from);
      const double end = std::min(at + lengths[i], to);
      if (i % 2 == 0 && start < end) {
        const QPointF first = line.p1() + direction * start;
        const QPointF last = line.p1() + direction * end;
        painter.drawPolygon(QPolygonF{first + aside, last + aside, last - aside, first - aside});
      }
      at += lengths[i];
    }
  }
}

void QtDC::StrokeFarLines(const QPolygonF& points, bool closed) {
  QPen pen = StrokePen();
  const double reach = kFarMargin + pen.widthF();
  const QRectF box = QRectF(clipBox).adjusted(-reach, -reach, reach, reach);
  double total = 0;
  for (const qreal length : pen.dashPattern()) total += length * pen.widthF();
  double done = 0;
  const qsizetype count = points.size() - (closed ? 0 : 1);
  for (qsizetype i = 0; i < count; ++i) {
    const QPointF a = points[i];
    const QPointF d = points[(i + 1) % points.size()] - a;
    const double length = std::hypot(d.x(), d.y());
    const auto part = ClipLine(a, a + d, box);
    if (part && total > 0) {
      StrokeDashes(QLineF(a, a + d), part->from * length, part->to * length, done);
    } else if (part) {
      painter.setPen(pen);
      painter.drawLine(QLineF(a + d * part->from, a + d * part->to));
    }
    done += length;
  }
}

void QtDC::Polygon(std::span<const POINT> points) {
  if (points.size() < 2) return;
  QPolygonF physical;
  physical.reserve(static_cast<qsizetype>(points.size()));
  for (const POINT p : points) physical << ToPhysical(p);
  const double half = hairline / 2.0;
  if (!GetBrush().hollow && points.size() > 2) {
    QPolygonF area = physical.translated(half, half);
    if (!IsNear(area.boundingRect())) {
      area = ClipPolygon(
          area, QRectF(clipBox).adjusted(-kFarMargin, -kFarMargin, kFarMargin, kFarMargin));
    }
    SetMode(!Inverts() && !IsUpright(physical, true));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink(GetBrush().colour));
    painter.drawPolygon(area, Qt::WindingFill);
  }
  if (GetPen().style != PenStyle::Null) StrokeLines(std::move(physical), true);
}

void QtDC::Rectangle(const RECT& r) {
  const QRectF box = ToPhysical(r);
  if (box.width() <= 0 || box.height() <= 0) return;
  const bool hasPen = GetPen().style != PenStyle::Null;
  const double width = hasPen ? PenWidth() : 0;
  if (Visible(box).isEmpty()) return;
  if (hasPen && (box.width() <= 2 * width || box.height() <= 2 * width)) {
    FillBox(box, Ink(GetPen().colour));
    return;
  }
  if (!GetBrush().hollow) {
    FillBox(box.adjusted(width, width, -width, -width), Ink(GetBrush().colour));
  }
  if (!hasPen) return;
  const std::vector<int> dashes = DashLengths();
  PixelRuns runs(clipBox, static_cast<int>(width), dashes);
  const QPointF topRight(box.right() - width, box.top());
  const QPointF bottomRight(box.right() - width, box.bottom() - width);
  const QPointF bottomLeft(box.left(), box.bottom() - width);
  runs.AddLine(box.topLeft(), topRight);
  runs.AddLine(topRight, bottomRight);
  runs.AddLine(bottomRight, bottomLeft);
  runs.AddLine(bottomLeft, box.topLeft());
  PaintRuns(runs, Ink(GetPen().colour));
}

void QtDC::RoundRect(const RECT& r, SIZE cornerEllipse) {
  const QRectF box = ToPhysical(r);
  if (box.width() <= 0 || box.height() <= 0 || Visible(box).isEmpty()) return;
  const double half = GetPen().style == PenStyle::Null ? 0 : PenWidth() / 2;
  const double unit = GetMapping().Scale() * scale;
  const double rx = std::max(cornerEllipse.cx * unit / 2, 0.0);
  const double ry = std::max(cornerEllipse.cy * unit / 2, 0.0);
  const auto inset = [&](double by) {
    const QRectF part = box.adjusted(by, by, -by, -by);
    QPainterPath path;
    path.addRoundedRect(part, std::clamp(rx - by, 0.0, std::max(part.width() / 2, 0.0)),
                        std::clamp(ry - by, 0.0, std::max(part.height() / 2, 0.0)));
    return path;
  };
  if (PaintRing(inset(0), inset(2 * half))) return;
  PaintPath(inset(half), true);
}

void QtDC::Ellipse(const RECT& r) {
  const QRectF box = ToPhysical(r);
  if (box.width() <= 0 || box.height() <= 0 || Visible(box).isEmpty()) return;
  const double half = GetPen().style == PenStyle::Null ? 0 : PenWidth() / 2;
  QPainterPath path;
  path.addEllipse(box.adjusted(half, half, -half, -half));
  PaintPath(path, true);
}

void QtDC::Arc(const RECT& r, POINT start, POINT end) {
  const QRectF box = ToPhysical(r);
  if (box.width() <= 0 || box.height() <= 0 || Visible(box).isEmpty()) return;
  const double half = PenWidth() / 2;
  const QRectF ring = box.adjusted(half, half, -half, -half);
  const auto angleOf = [&](POINT p) {
    const QPointF d = ToPhysical(p) - box.center();
    const double angle = std::atan2(-d.y() / box.height(), d.x() / box.width());
    return angle * 180 / std::numbers::pi;
  };
  const double from = angleOf(start);
  double sweep = angleOf(end) - from;
  if (sweep <= 0) sweep += 360;
  QPainterPath path;
  path.arcMoveTo(ring, from);
  path.arcTo(ring, from, sweep);
  PaintPath(path, false, Qt::SquareCap);
}

/// Paints a smooth shape with a solid outline as two areas, which is far cheaper than a stroke.
bool QtDC::PaintRing(const QPainterPath& outer, const QPainterPath& inner) {
  const QRectF box = outer.boundingRect();
  const QSizeF hole = inner.boundingRect().size();
  if (page || Inverts() || GetPen().style != PenStyle::Solid || !IsNear(box)) return false;
  if (hole.width() < 1 || hole.height() < 1) return false;
  SetMode(true);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Ink(GetPen().colour));
  if (GetBrush().hollow) {
    QPainterPath ring = outer;
    ring.addPath(inner);
    painter.drawPath(ring);
    return true;
  }
  painter.drawPath(outer);
  painter.setBrush(Ink(GetBrush().colour));
  painter.drawPath(inner);
  return true;
}

void QtDC::PaintPath(const QPainterPath& path, bool filled, Qt::PenCapStyle cap) {
  const QRectF box = path.boundingRect();
  SetMode(!Inverts());
  if (!IsNear(box)) {
    PaintFarPath(path, filled);
    return;
  }
  QPen pen = StrokePen();
  // The pixels in which an open curve ends are covered whole, so that it meets the lines there.
  if (pen.style() == Qt::SolidLine && !Inverts()) pen.setCapStyle(cap);
  painter.setPen(pen);
  painter.setBrush(filled && !GetBrush().hollow ? QBrush(Ink(GetBrush().colour))
                                                : QBrush(Qt::NoBrush));
  painter.drawPath(path);
}

void QtDC::PaintFarPath(const QPainterPath& path, bool filled) {
  const QRectF around = QRectF(clipBox).adjusted(-kFarMargin, -kFarMargin, kFarMargin, kFarMargin);
  for (const QPolygonF& part : path.toSubpathPolygons()) {
    if (filled && !GetBrush().hollow) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(Ink(GetBrush().colour));
      painter.drawPolygon(ClipPolygon(part, around), Qt::WindingFill);
    }
    if (GetPen().style != PenStyle::Null && part.size() > 1) StrokeFarLines(part, false);
  }
}

void QtDC::PaintText(QPointF origin, double factor, std::string_view utf8) {
  const QtFont& font = fonts.Get(GetFont());
  const QColor colour = Ink(GetTextColor());
  if (Inverts()) {
    // Letters as areas: each pixel is turned over once.
    QPainterPath path;
    path.addText(QPointF(0, font.Ascent()), font.Font(), QtFont::Printable(utf8));
    const QTransform place =
        QTransform::fromTranslate(origin.x(), origin.y()).scale(factor, factor);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPath(place.map(path));
    return;
  }
  painter.setPen(colour);
  const QGlyphRun* glyphs = page ? nullptr : font.Glyphs(utf8);
  QPointF baseline(0, font.Ascent());
  if (factor == 1) {
    baseline += origin;
  } else {
    const QPointF place = origin - offset;
    painter.setTransform(QTransform(factor, 0, 0, factor, place.x(), place.y()));
  }
  if (glyphs != nullptr) {
    painter.drawGlyphRun(baseline, *glyphs);
  } else if (page) {
    PaintLaidOut(painter, baseline, font.Font(), QtFont::Printable(utf8));
  } else {
    painter.setFont(font.Font());
    while (!utf8.empty()) {
      const std::string_view piece = QtFont::TakePiece(utf8);
      painter.drawText(baseline, QtFont::Printable(piece));
      baseline.rx() += font.Advance(piece);
    }
  }
  if (factor != 1) painter.setTransform(QTransform::fromTranslate(-offset.x(), -offset.y()));
}

}  // namespace morvane
