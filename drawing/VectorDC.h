#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "drawing/CDC.h"

namespace morvane {

/// What contexts have in common that write strokes and areas instead of pixels, one unit to the
/// logical unit. Of the mapping they take the viewport origin alone. A thin pen is one unit wide
/// and runs through the middle of what would be its pixels, to its last point. Texts are measured
/// by the reference context, which has to outlive this one.
class VectorDC : public CDC {
 public:
  VectorDC(CDC& reference, SIZE size) : size(size), reference(reference) {}

  bool PaintsLastPoint() const override { return true; }
  int GetDeviceCaps(DeviceCap cap) const override;
  RECT GetClipBox() const override;
  void FillMask(POINT topLeft, const BitMask& mask) override;
  SIZE GetTextExtent(std::string_view utf8) const override;
  std::vector<TextRun> GetTextRuns(std::string_view utf8) const override;
  TextMetrics GetTextMetrics() const override;

 protected:
  struct Spot {
    double x = 0;
    double y = 0;
  };
  struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
  };
  /// A part of an ellipse, counter-clockwise as seen on the screen, angles in radians.
  struct Curve {
    Spot centre;
    Spot radii;
    double from = 0;
    double to = 0;
    Spot At(double angle) const;
  };

  RECT Placed(const RECT& r) const { return r + GetViewportOrg(); }
  /// The middle of the pixel.
  Spot Placed(POINT p) const;
  bool HasPen() const { return GetPen().style != PenStyle::Null; }
  bool IsPenThick() const { return HasPen() && GetPen().width > 1; }
  /// The lengths of strokes and gaps; empty for a pen without gaps.
  std::span<const int> Dashes() const;
  std::int64_t PenWidth() const;
  /// Where the line around a shape runs: inside its box, its middle half a pen in.
  Box OutlineBox(const RECT& r) const;
  /// Half the axes of a rounded corner, on the middle of the line.
  Spot CornerRadii(SIZE cornerEllipse) const;
  /// An arc in `r`; its radii are 0 if there is none.
  Curve CurveOf(const RECT& r, POINT start, POINT end) const;
  /// True if nothing of a text shows; else `cut` tells whether the clip takes something away.
  bool IsHidden(POINT topLeft, SIZE extent, const RECT* clip, bool& cut) const;

  SIZE size;

 private:
  CDC& reference;
};

}  // namespace morvane
