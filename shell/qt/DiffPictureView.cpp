#include "shell/qt/DiffPictureView.h"

#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include "surface/Picture.h"

namespace morvane {

namespace {

constexpr double kZoomStep = 1.25;
constexpr double kSmallestZoom = 0.005;
constexpr double kGreatestZoom = 6;
/// No side of the picture is shown longer, pixels.
constexpr double kMaxSide = 1e9;
/// The frame stands so far off its place, and the place so far off the edge, pixels.
constexpr int kFrameGap = 6;
constexpr int kFrameWidth = 2;
constexpr int kSightMargin = 40;

}  // namespace

DiffPictureView::DiffPictureView(const Picture& picture, QWidget* parent)
    : QAbstractScrollArea(parent), picture(picture) {
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

QPoint DiffPictureView::ScrollPosition() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void DiffPictureView::UpdateBars() {
  const QSize whole(static_cast<int>(std::ceil(picture.Size().cx * zoom)),
                    static_cast<int>(std::ceil(picture.Size().cy * zoom)));
  const QSize room = viewport()->size();
  const auto set = [](QScrollBar& bar, int length, int page) {
    bar.setRange(0, std::max(length - page, 0));
    bar.setPageStep(page);
    bar.setSingleStep(kSightMargin);
  };
  set(*horizontalScrollBar(), whole.width(), room.width());
  set(*verticalScrollBar(), whole.height(), room.height());
  viewport()->update();
}

/// What lies in the middle of the window stays there.
void DiffPictureView::SetZoom(double wanted) {
  const double side = std::max({picture.Size().cx, picture.Size().cy, 1});
  const double greatest = std::min(kGreatestZoom, kMaxSide / side);
  const double next = std::clamp(wanted, std::min(kSmallestZoom, greatest), greatest);
  const QPointF half(viewport()->width() / 2.0, viewport()->height() / 2.0);
  const QPointF middle = (ScrollPosition() + half) / zoom;
  zoom = next;
  UpdateBars();
  const QPointF corner = middle * zoom - half;
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(corner.x())));
  verticalScrollBar()->setValue(static_cast<int>(std::lround(corner.y())));
}

void DiffPictureView::ZoomIn() {
  fits = false;
  SetZoom(zoom * kZoomStep);
}

void DiffPictureView::ZoomOut() {
  fits = false;
  SetZoom(zoom / kZoomStep);
}

void DiffPictureView::Fit() {
  fits = true;
  const QSize room = maximumViewportSize();
  const double across = room.width() / static_cast<double>(std::max(picture.Size().cx, 1));
  const double down = room.height() / static_cast<double>(std::max(picture.Size().cy, 1));
  SetZoom(std::min({across, down, 1.0}));
}

void DiffPictureView::Show(const RECT& place) {
  framed = place;
  if (Width(place) > 0 || Height(place) > 0) {
    const auto reveal = [this](QScrollBar& bar, double from, double to, int room) {
      const int first = static_cast<int>(from * zoom) - kSightMargin;
      const int last = static_cast<int>(to * zoom) + kSightMargin;
      if (last - first > room || first < bar.value()) {
        bar.setValue(first);
      } else if (last > bar.value() + room) {
        bar.setValue(last - room);
      }
    };
    reveal(*horizontalScrollBar(), place.left, place.right, viewport()->width());
    reveal(*verticalScrollBar(), place.top, place.bottom, viewport()->height());
  }
  viewport()->update();
}

/// A part of the picture, an area of the whole at the present zoom.
QImage DiffPictureView::Render(const QRect& area) {
  const double ratio = devicePixelRatioF();
  // The context begins at a whole logical unit; what stands before the area is cut off.
  const POINT first{static_cast<std::int32_t>(std::floor(area.left() / zoom)),
                    static_cast<std::int32_t>(std::floor(area.top() / zoom))};
  const double beforeX = area.left() - first.x * zoom;
  const double beforeY = area.top() - first.y * zoom;
  const SIZE shown{static_cast<std::int32_t>(std::ceil((area.width() + beforeX) / zoom)) + 1,
                   static_cast<std::int32_t>(std::ceil((area.height() + beforeY) / zoom)) + 1};
  QImage large((QSizeF(shown.cx, shown.cy) * zoom * ratio).toSize().expandedTo({1, 1}),
               QImage::Format_RGB32);
  large.fill(Qt::white);
  {
    // As on a page: smooth at any scale.
    QtDC dc(large, zoom * ratio, shown, fonts);
    dc.SetViewportOrg(POINT{} - first);
    picture.Paint(dc);
  }
  const QRectF part(beforeX * ratio, beforeY * ratio, area.width() * ratio, area.height() * ratio);
  QImage image = large.copy(part.toRect());
  image.setDevicePixelRatio(ratio);
  return image;
}

void DiffPictureView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const QRect dirty = event->rect();
  painter.drawImage(dirty.topLeft(), Render(dirty.translated(ScrollPosition())));
  if (Width(framed) <= 0 && Height(framed) <= 0) return;
  const QRectF place(framed.left * zoom, framed.top * zoom,
                     static_cast<double>(Width(framed)) * zoom,
                     static_cast<double>(Height(framed)) * zoom);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), kFrameWidth));
  painter.drawRoundedRect(
      place.translated(-ScrollPosition()).adjusted(-kFrameGap, -kFrameGap, kFrameGap, kFrameGap),
      kFrameGap, kFrameGap);
}

void DiffPictureView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  fits ? Fit() : UpdateBars();
}

void DiffPictureView::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  if (event->angleDelta().y() > 0) ZoomIn();
  if (event->angleDelta().y() < 0) ZoomOut();
  event->accept();
}

}  // namespace morvane
