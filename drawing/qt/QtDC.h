#pragma once

#include <optional>
#include <vector>

#include <QPainter>
#include <QPolygonF>
#include <QRegion>

#include "drawing/CDC.h"

class QPainterPath;

namespace morvane {

class PixelRuns;
class QtFontCache;

/// A context on a picture or a page. Three grids meet here: logical units go through the mapping to
/// device pixels, and those times a scale are physical pixels, on which all geometry is rounded, so
/// that lines are sharp at any scale. Straight lines are painted pixel by pixel as an old device
/// does; what is slanted or curved is smoothed, unless the context inverts: there each pixel is
/// turned over whole.
class QtDC : public CDC {
 public:
  /// Paints on a picture with `scale` physical pixels to a device pixel; only in `clip` (physical
  /// pixels) if one is given. The picture has to outlive the context and must not be copied
  /// meanwhile; several contexts may paint on it in turn.
  QtDC(QImage& image, double scale, QtFontCache& fonts, const QRegion* clip = nullptr);
  /// Paints the part of a larger picture that begins at `offset`, physical pixels, and fills
  /// `part`.
  QtDC(QImage& part, QPoint offset, double scale, QtFontCache& fonts);
  /// Paints on a page of `size` device pixels with `scale` units of the painter to a device pixel,
  /// as strokes and letters, not as pixels.
  QtDC(QPaintDevice& page, double scale, SIZE size, QtFontCache& fonts);

  /// What `GetDeviceCaps` tells of the device's resolution; 96 unless set.
  void SetLogPixels(int perInch) { logPixels = perInch; }
  /// The device is, or stands for, paper of `area` device pixels that nobody can see one by one: a
  /// thin pen is as thick as on the screen, and so are its dashes.
  void SetPaper(SIZE area, int pixelsPerInch);
  /// Colours become greys of the same lightness.
  void SetGreys(bool wanted) { greys = wanted; }
  QPainter& Painter() { return painter; }

  bool PaintsLastPoint() const override { return page; }
  int GetDeviceCaps(DeviceCap cap) const override;
  RECT GetClipBox() const override;
  void Polyline(std::span<const POINT> points) override;
  void Polygon(std::span<const POINT> points) override;
  void Rectangle(const RECT& r) override;
  void RoundRect(const RECT& r, SIZE cornerEllipse) override;
  void Ellipse(const RECT& r) override;
  void Arc(const RECT& r, POINT start, POINT end) override;
  void FillRect(const RECT& r, const CBrush& with) override;
  void FillMask(POINT topLeft, const BitMask& mask) override;
  void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) override;
  SIZE GetTextExtent(std::string_view utf8) const override;
  std::vector<TextRun> GetTextRuns(std::string_view utf8) const override;
  TextMetrics GetTextMetrics() const override;

 private:
  void Begin(const QRegion* clip);
  void SetDot(double physical);
  bool Inverts() const { return !page && GetROP2() == RasterOp::NotXorPen; }
  bool IsPenThin() const;
  double PenWidth() const;
  std::vector<int> DashLengths() const;
  QPen StrokePen() const;
  QColor Ink(COLORREF colour) const;

  QPointF ToPhysical(POINT p) const;
  QRectF ToPhysical(const RECT& r) const;
  double ToPhysical(std::int32_t device) const;
  bool IsNear(const QRectF& box) const;
  QRect Visible(const QRectF& box) const;

  void SetMode(bool smooth);
  void FillBox(const QRectF& box, QColor colour);
  void PaintRuns(const PixelRuns& runs, QColor colour);
  void StrokeLines(QPolygonF points, bool closed);
  void StrokeDashes(const QLineF& line, double from, double to, double before);
  void StrokeFarLines(const QPolygonF& points, bool closed);
  void PaintPath(const QPainterPath& path, bool filled, Qt::PenCapStyle cap = Qt::FlatCap);
  void PaintFarPath(const QPainterPath& path, bool filled);
  void PaintText(QPointF origin, double factor, std::string_view utf8);
  bool PaintRing(const QPainterPath& outer, const QPainterPath& inner);

  QImage alias;   ///< the same pixels under a paint device of our own
  QPoint offset;  ///< where on the whole picture they begin, physical pixels
  QPainter painter;
  QtFontCache& fonts;
  double scale;
  SIZE size;  ///< device pixels
  bool page = false;
  bool greys = false;
  int logPixels = 96;
  double dot = 1;    ///< a pixel of the screen for pens, physical pixels
  int hairline = 1;  ///< thickness of a thin pen, physical pixels
  QRect clipBox;     ///< physical pixels
};

}  // namespace morvane
