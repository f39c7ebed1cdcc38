#include "drawing/qt/QtDC.h"

#include <algorithm>
#include <cmath>

#include <QPaintDevice>

#include "drawing/qt/QtText.h"
#include "drawing/qt/QtTextRuns.h"

namespace morvane {

namespace {

/// Coordinates within this distance can be handed to Qt as they are.
constexpr double kNearPixels = 30000;
constexpr double kNearUnits = 4e6;
constexpr double kMillimetresPerInch = 25.4;
/// Dots of a pen to the inch of paper: a logical unit, as at the normal size of the screen.
constexpr double kDotsPerInch = 120;
/// A line of text shows no more than this many bytes on any device.
constexpr std::size_t kMaxLineBytes = 32768;

}  // namespace

QtDC::QtDC(QImage& image, double scale, QtFontCache& fonts, const QRegion* clip)
    : alias(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format()),
      fonts(fonts),
      scale(scale),
      size{static_cast<std::int32_t>(std::ceil(image.width() / scale)),
           static_cast<std::int32_t>(std::ceil(image.height() / scale))},
      clipBox(alias.rect()) {
  painter.begin(&alias);
  Begin(clip);
}

QtDC::QtDC(QImage& part, QPoint offset, double scale, QtFontCache& fonts)
    : alias(part.bits(), part.width(), part.height(), part.bytesPerLine(), part.format()),
      offset(offset),
      fonts(fonts),
      scale(scale),
      size{static_cast<std::int32_t>(std::ceil((offset.x() + part.width()) / scale)),
           static_cast<std::int32_t>(std::ceil((offset.y() + part.height()) / scale))},
      clipBox(alias.rect().translated(offset)) {
  painter.begin(&alias);
  painter.translate(-offset);
  Begin(nullptr);
}

QtDC::QtDC(QPaintDevice& device, double scale, SIZE size, QtFontCache& fonts)
    : fonts(fonts),
      scale(scale),
      size(size),
      page(true),
      clipBox(0, 0, static_cast<int>(std::ceil(size.cx * scale)),
              static_cast<int>(std::ceil(size.cy * scale))) {
  painter.begin(&device);
  Begin(nullptr);
}

void QtDC::Begin(const QRegion* clip) {
  SetDot(scale);
  painter.setRenderHint(QPainter::TextAntialiasing);
  if (clip == nullptr) return;
  const QRegion inside = clip->intersected(clipBox);
  painter.setClipRegion(inside);
  clipBox = inside.boundingRect();
}

void QtDC::SetDot(double physical) {
  dot = physical;
  hairline = std::max(1, static_cast<int>(std::floor(dot)));
}

void QtDC::SetPaper(SIZE area, int pixelsPerInch) {
  size = area;
  SetLogPixels(pixelsPerInch);
  SetDot(scale * pixelsPerInch / kDotsPerInch);
}

int QtDC::GetDeviceCaps(DeviceCap cap) const {
  const auto millimetres = [this](std::int32_t pixels) {
    return static_cast<int>(std::lround(pixels * kMillimetresPerInch / logPixels));
  };
  switch (cap) {
    case DeviceCap::HorzSize: return millimetres(size.cx);
    case DeviceCap::VertSize: return millimetres(size.cy);
    case DeviceCap::HorzRes: return size.cx;
    case DeviceCap::VertRes: return size.cy;
    case DeviceCap::LogPixelsX:
    case DeviceCap::LogPixelsY: return logPixels;
  }
  return 0;
}

RECT QtDC::GetClipBox() const {
  if (clipBox.isEmpty()) return {};
  const auto down = [this](int v) { return static_cast<std::int32_t>(std::floor(v / scale)); };
  const auto up = [this](int v) { return static_cast<std::int32_t>(std::ceil(v / scale)); };
  return GetMapping().ToLogicalCovering({down(clipBox.left()), down(clipBox.top()),
                                         up(clipBox.right() + 1), up(clipBox.bottom() + 1)});
}

QColor QtDC::Ink(COLORREF c) const {
  const QRgb colour = qRgb(static_cast<int>(GetRValue(c)), static_cast<int>(GetGValue(c)),
                           static_cast<int>(GetBValue(c)));
  if (!greys) return QColor::fromRgb(colour);
  const int grey = qGray(colour);
  return QColor(grey, grey, grey);
}

double QtDC::ToPhysical(std::int32_t device) const { return std::floor(device * scale + 0.5); }

QPointF QtDC::ToPhysical(POINT p) const {
  const POINT device = LPtoDP(p);
  return {ToPhysical(device.x), ToPhysical(device.y)};
}

QRectF QtDC::ToPhysical(const RECT& r) const {
  const RECT device = NormalizeRect(GetMapping().ToDevice(r));
  return {QPointF(ToPhysical(device.left), ToPhysical(device.top)),
          QPointF(ToPhysical(device.right), ToPhysical(device.bottom))};
}

bool QtDC::IsNear(const QRectF& box) const {
  const double limit = page ? kNearUnits : kNearPixels;
  const QRectF onImage = box.translated(-offset);
  return onImage.left() > -limit && onImage.top() > -limit && onImage.right() < limit &&
         onImage.bottom() < limit;
}

QRect QtDC::Visible(const QRectF& box) const {
  const double left = std::max<double>(box.left(), clipBox.left());
  const double top = std::max<double>(box.top(), clipBox.top());
  const double right = std::min<double>(box.right(), clipBox.right() + 1.0);
  const double bottom = std::min<double>(box.bottom(), clipBox.bottom() + 1.0);
  if (right <= left || bottom <= top) return {};
  return QRectF(QPointF(left, top), QPointF(right, bottom)).toAlignedRect();
}

void QtDC::SetMode(bool smooth) {
  if (painter.testRenderHint(QPainter::Antialiasing) != smooth) {
    painter.setRenderHint(QPainter::Antialiasing, smooth);
  }
  auto mode = QPainter::CompositionMode_SourceOver;
  if (Inverts()) mode = QPainter::RasterOp_NotSourceXorDestination;
  if (!page && GetROP2() == RasterOp::Darken) mode = QPainter::CompositionMode_Multiply;
  if (painter.compositionMode() != mode) painter.setCompositionMode(mode);
}

void QtDC::FillRect(const RECT& r, const CBrush& with) {
  if (with.hollow) return;
  FillBox(ToPhysical(r), Ink(with.colour));
}

void QtDC::FillBox(const QRectF& box, QColor colour) {
  const QRect visible = Visible(box);
  if (visible.isEmpty()) return;
  SetMode(false);
  painter.fillRect(visible, colour);
}

void QtDC::FillMask(POINT topLeft, const BitMask& mask) {
  if (GetBrush().hollow) return;
  const POINT origin = LPtoDP(topLeft);
  const QColor colour = Ink(GetBrush().colour);
  for (int y = 0; y < std::min(mask.height, BitMask::kMaxRows); ++y) {
    for (int x = 0; x < std::min(mask.width, 8); ++x) {
      if (!mask.IsSet(x, y)) continue;
      const POINT pixel = origin + POINT{x, y};
      FillBox({QPointF(ToPhysical(pixel.x), ToPhysical(pixel.y)),
               QPointF(ToPhysical(AddSat(pixel.x, 1)), ToPhysical(AddSat(pixel.y, 1)))},
              colour);
    }
  }
}

SIZE QtDC::GetTextExtent(std::string_view utf8) const {
  const QtFont& font = fonts.Get(GetFont());
  const double width = std::ceil(font.Advance(utf8) - 1e-6);
  return {Saturate(static_cast<std::int64_t>(width)), font.Metrics().height};
}

std::vector<TextRun> QtDC::GetTextRuns(std::string_view utf8) const {
  if (MayRunRightToLeft(utf8)) {
    std::vector<TextRun> runs = QtTextRuns::Of(fonts.Get(GetFont()), utf8);
    const bool turns = std::ranges::any_of(
        runs, [](const TextRun& run) { return run.direction == TextDirection::RightToLeft; });
    if (turns) return runs;
  }
  return CDC::GetTextRuns(utf8);
}

TextMetrics QtDC::GetTextMetrics() const { return fonts.Get(GetFont()).Metrics(); }

void QtDC::TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) {
  const QtFont& font = fonts.Get(GetFont());
  const double factor = GetMapping().Scale() * scale;
  const QPointF origin = ToPhysical(topLeft);
  utf8 = utf8.substr(0, std::min(utf8.size(), kMaxLineBytes));
  // Letters may reach a little over their own box.
  const double overhang = font.Metrics().height * factor * 0.5 + 1;
  const QRectF box(origin, QSizeF(font.Advance(utf8), font.Metrics().height) * factor);
  QRect visible = Visible(box.adjusted(-overhang, -1, overhang, 1));
  bool cut = false;
  if (clip != nullptr) {
    const QRectF limit = ToPhysical(*clip);
    cut = !limit.contains(box.adjusted(-1, 0, 1, 0));
    visible &= Visible(limit);
  }
  if (visible.isEmpty()) return;
  SetMode(false);
  if (cut) {
    painter.save();
    painter.setClipRect(visible, Qt::IntersectClip);
  }
  PaintText(origin, factor, utf8);
  if (cut) painter.restore();
}

}  // namespace morvane
