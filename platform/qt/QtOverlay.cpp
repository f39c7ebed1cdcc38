#include "platform/qt/QtOverlay.h"

#include <algorithm>

#include <QPainter>

QImage& QtOverlay::Marks(const QSize& size) {
  if (marks.size() != size) {
    QImage made(size, QImage::Format_RGB32);
    made.fill(Qt::white);
    if (!marks.isNull()) QPainter(&made).drawImage(0, 0, marks);
    marks = std::move(made);
  }
  return marks;
}

void QtOverlay::ShowOn(QImage& picture, const QRegion& part) {
  if (touched.isEmpty()) return;
  touched &= marks.rect();
  if (IsBlank()) {
    touched = {};
    return;
  }
  QPainter painter(&picture);
  painter.setClipRegion(part);
  painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
  painter.drawImage(touched.topLeft(), marks, touched);
}

bool QtOverlay::IsBlank() const {
  constexpr QRgb colourBits = 0xFFFFFF;
  for (int y = touched.top(); y <= touched.bottom(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(marks.constScanLine(y));
    const bool blank = std::all_of(line + touched.left(), line + touched.right() + 1,
                                   [](QRgb pixel) { return (pixel & colourBits) == colourBits; });
    if (!blank) return false;
  }
  return true;
}
