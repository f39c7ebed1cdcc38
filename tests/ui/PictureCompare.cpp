#include "tests/ui/PictureCompare.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace morvane {

namespace {

constexpr int kSquare = PictureDifference::kSquare;
constexpr int kStep = kSquare / 2;
constexpr int kMostDifferent = 255;

/// The greatest difference of the sums over a square in one channel.
int SquareDifference(const QImage& a, const QImage& b, int left, int top) {
  std::array<int, 3> sums{};
  for (int y = top; y < top + kSquare; ++y) {
    const auto* lineA = reinterpret_cast<const QRgb*>(a.constScanLine(y));
    const auto* lineB = reinterpret_cast<const QRgb*>(b.constScanLine(y));
    for (int x = left; x < left + kSquare; ++x) {
      if (lineA[x] == lineB[x]) continue;
      sums[0] += qRed(lineA[x]) - qRed(lineB[x]);
      sums[1] += qGreen(lineA[x]) - qGreen(lineB[x]);
      sums[2] += qBlue(lineA[x]) - qBlue(lineB[x]);
    }
  }
  return std::max({std::abs(sums[0]), std::abs(sums[1]), std::abs(sums[2])});
}

}  // namespace

PictureDifference PictureDifference::Of(const QImage& a, const QImage& b, const QRegion& ignored) {
  if (a.size() != b.size() || a.isNull()) return {kMostDifferent, {}};
  // White around both, so that squares reach beyond every edge.
  const auto framed = [](const QImage& image) {
    QImage whole(image.size() + QSize(2 * kSquare, 2 * kSquare), QImage::Format_RGB32);
    whole.fill(Qt::white);
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < plain.height(); ++y) {
      std::copy_n(reinterpret_cast<const QRgb*>(plain.constScanLine(y)), plain.width(),
                  reinterpret_cast<QRgb*>(whole.scanLine(y + kSquare)) + kSquare);
    }
    return whole;
  };
  const QImage first = framed(a);
  const QImage second = framed(b);
  PictureDifference result;
  for (int y = 0; y + kSquare <= first.height(); y += kStep) {
    for (int x = 0; x + kSquare <= first.width(); x += kStep) {
      const QRect square(x - kSquare, y - kSquare, kSquare, kSquare);
      const int mean = SquareDifference(first, second, x, y) / (kSquare * kSquare);
      if (mean <= result.worst || ignored.intersects(square)) continue;
      result = {mean, square.topLeft()};
    }
  }
  return result;
}

}  // namespace morvane
