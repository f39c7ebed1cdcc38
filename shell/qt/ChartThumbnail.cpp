#include "shell/qt/ChartThumbnail.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include <QPainter>

#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"
#include "model/ModelMgr.h"
#include "persistence/ModelFile.h"
#include "platform/NoMessages.h"
#include "platform/UseService.h"
#include "resources/Texts.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// A chart of so many bytes takes a moment to draw; larger ones have no picture.
constexpr std::size_t kLargestText = 4'000'000;
/// The thinnest line that a context paints is a pixel wide, which is too heavy for a small picture:
/// it is drawn so many times larger.
constexpr int kFineness = 3;
/// The frame and some room around the chart, pixels.
constexpr int kEdge = 4;
/// A part of the way from the background to the text that still reads as a frame.
constexpr int kFramePart = 4;

QColor Blend(const QColor& a, const QColor& b, int part) {
  const auto mix = [part](int x, int y) { return x + (y - x) / part; };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

std::optional<QImage> Draw(LayoutMgr& chart, QSize size, double ratio) {
  const bool hasObjects = !chart.GetModel().Objects().empty();
  if (hasObjects) chart.GetModel().SelectAll();
  const ChartPicture picture(chart, {.selectionOnly = hasObjects});
  const QSizeF whole(picture.Size().cx, picture.Size().cy);
  if (whole.isEmpty()) return std::nullopt;
  const double fit = std::min(size.width() / whole.width(), size.height() / whole.height());
  const double scale = std::min(fit, 1.0) * ratio;
  QImage large((whole * scale * kFineness).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  large.fill(Qt::white);
  QtFontCache fonts;
  {
    // As on a page: smooth at any scale.
    QtDC dc(large, scale * kFineness, picture.Size(), fonts);
    picture.Paint(dc);
  }
  QImage image = large.scaled((whole * scale).toSize().expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                              Qt::SmoothTransformation);
  image.setDevicePixelRatio(ratio);
  return image;
}

}  // namespace

std::optional<QImage> MakeThumbnail(const std::string& text, QSize size, double ratio) {
  if (text.size() > kLargestText) return std::nullopt;
  try {
    NoMessages silence;
    const UseService<MessageBoxes> use(silence);
    LayoutMgr chart;
    if (!ModelFile::Parse(text, chart).empty()) return std::nullopt;
    chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
    return Draw(chart, size, ratio);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

ChartThumbnail::ChartThumbnail(const std::string& text, QSize size, QWidget* parent)
    : QWidget(parent), text(text) {
  setFixedSize(size);
}

void ChartThumbnail::paintEvent(QPaintEvent*) {
  const QSize room = size() - QSize(2 * kEdge, 2 * kEdge);
  if (!drawn) picture = MakeThumbnail(text, room, devicePixelRatioF());
  drawn = true;
  QPainter painter(this);
  const QColor frame =
      Blend(palette().color(QPalette::Base), palette().color(QPalette::Text), kFramePart);
  painter.setPen(frame);
  painter.setBrush(picture ? QColor(Qt::white) : palette().color(QPalette::Window));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (!picture) {
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     ToQString(LoadText(IDS_NO_PREVIEW)));
    return;
  }
  const QSizeF shown = picture->deviceIndependentSize();
  const QPointF corner((width() - shown.width()) / 2, (height() - shown.height()) / 2);
  painter.drawImage(corner.toPoint(), *picture);
}

}  // namespace morvane
