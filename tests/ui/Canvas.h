#pragma once

#include <memory>

#include <QImage>

#include "drawing/qt/QtDC.h"
#include "drawing/qt/QtText.h"

namespace morvane {

/// The box around all pixels that aren't white.
inline QRect InkOf(const QImage& image) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != 0xFFFFFFFF) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

/// A white picture to draw on, with `scale` physical pixels to a device pixel.
class Canvas {
 public:
  explicit Canvas(int width = 100, int height = 100, double scale = 1)
      : scale(scale),
        image(static_cast<int>(width * scale), static_cast<int>(height * scale),
              QImage::Format_RGB32) {
    image.fill(Qt::white);
  }

  std::unique_ptr<QtDC> DC() { return std::make_unique<QtDC>(image, scale, fonts); }
  /// Draws with a context that is gone afterwards.
  template <class Drawing>
  void Draw(const Drawing& drawing) {
    drawing(*DC());
  }
  QImage& Image() { return image; }
  /// The lightness of a physical pixel, 0 to 255.
  int At(int x, int y) const { return qGray(image.pixel(x, y)); }
  QRect Painted() const { return InkOf(image); }

 private:
  double scale;
  QImage image;
  QtFontCache fonts;
};

}  // namespace morvane
