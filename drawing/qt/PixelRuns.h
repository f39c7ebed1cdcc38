#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <QPointF>
#include <QRect>

namespace morvane {

/// Turns lines into rectangles of whole pixels, as a device does that knows no antialiasing. The
/// pixels of a line do not depend on what part of it is visible. All in physical pixels.
class PixelRuns {
 public:
  /// `dash` holds the lengths of strokes and gaps in turn; empty for a solid line.
  PixelRuns(const QRect& visible, int thickness, std::span<const int> dash);

  /// Adds the line without its last point. The dashes go on from the line before.
  void AddLine(QPointF from, QPointF to);
  const std::vector<QRect>& Rects() const { return rects; }
  bool IsEmpty() const { return rects.empty(); }

 private:
  struct Line {
    bool alongX = true;
    bool back = false;  ///< toward smaller coordinates
    double major = 0;   ///< of the first pixel
    double minor = 0;
    double slope = 0;  ///< minor steps to a major step
  };

  void AddDashes(const Line& line, std::int64_t from, std::int64_t to);
  void AddSpan(const Line& line, std::int64_t from, std::int64_t to);
  void AddRect(const Line& line, std::int64_t from, std::int64_t to, double minor);

  QRect visible;
  int thickness;
  std::span<const int> dash;
  std::int64_t dashTotal = 0;
  std::int64_t phase = 0;
  std::vector<QRect> rects;
};

}  // namespace morvane
