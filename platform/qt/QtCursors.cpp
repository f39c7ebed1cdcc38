#include "platform/qt/QtCursors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace morvane {

namespace {

constexpr int kCursorSize = 32;

QPainterPath ArrowPath() {
  QPainterPath path;
  path.addPolygon(
      QPolygonF({{1, 1}, {1, 17}, {5, 13.4}, {7.6, 19}, {10, 18}, {7.4, 12.4}, {12.4, 12}}));
  path.closeSubpath();
  return path;
}

/// Four arrow heads around a cross.
QPainterPath CrossPath(QPointF centre) {
  QPainterPath path;
  for (int turn = 0; turn < 4; ++turn) {
    QTransform place = QTransform::fromTranslate(centre.x(), centre.y()).rotate(90.0 * turn);
    path.addPolygon(place.map(QPolygonF({{0, -8.5},
                                         {-3, -5},
                                         {-0.75, -5},
                                         {-0.75, 0},
                                         {0.75, 0},
                                         {0.75, -5},
                                         {3, -5},
                                         {0, -8.5}})));
  }
  path.setFillRule(Qt::WindingFill);
  return path.simplified();
}

QCursor MakeArrowWithCross() {
  const qreal ratio = qGuiApp->devicePixelRatio();
  QPixmap pixmap(QSize(kCursorSize, kCursorSize) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1.2));
  painter.setBrush(Qt::black);
  painter.drawPath(ArrowPath());
  painter.drawPath(CrossPath({21, 21}));
  painter.end();
  return QCursor(pixmap, 1, 1);
}

}  // namespace

QCursor MakeCursor(Cursor cursor) {
  switch (cursor) {
    case Cursor::SizeWE: return Qt::SizeHorCursor;
    case Cursor::SizeNS: return Qt::SizeVerCursor;
    case Cursor::SizeNWSE:
    case Cursor::DiagonalHandle: return Qt::SizeFDiagCursor;
    case Cursor::SizeNESW:
    case Cursor::DiagonalDouble: return Qt::SizeBDiagCursor;
    case Cursor::SizeAll: return Qt::SizeAllCursor;
    case Cursor::ArrowWithCross: return MakeArrowWithCross();
    case Cursor::Arrow:
    case Cursor::PlainArrow: break;
  }
  return Qt::ArrowCursor;
}

}  // namespace morvane
