#pragma once

#include <QImage>
#include <QRegion>

namespace morvane {

/// How far two pictures are apart, told by the mean colours of small squares: what smooths edges in
/// another way hardly changes them, a stroke more or less or a moved letter does.
struct PictureDifference {
  /// The side of a square, pixels. Squares overlap by half.
  static constexpr int kSquare = 8;

  int worst = 0;  ///< the greatest difference of a mean in one channel, 0 to 255
  QPoint where;   ///< the top left corner of that square

  /// Squares that touch `ignored` are passed over. Pictures of different sizes are wholly
  /// different.
  static PictureDifference Of(const QImage& a, const QImage& b, const QRegion& ignored = {});
};

}  // namespace morvane
