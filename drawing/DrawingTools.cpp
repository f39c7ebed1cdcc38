#include "drawing/DrawingTools.h"

#include <utility>

namespace morvane {

std::span<const int> DashPatternOf(PenStyle style) {
  static constexpr std::array<int, 2> dash{18, 6};
  static constexpr std::array<int, 2> dot{3, 3};
  static constexpr std::array<int, 4> dashDot{9, 6, 3, 6};
  static constexpr std::array<int, 6> dashDotDot{9, 3, 3, 3, 3, 3};
  switch (style) {
    case PenStyle::Dash: return dash;
    case PenStyle::Dot: return dot;
    case PenStyle::DashDot: return dashDot;
    case PenStyle::DashDotDot: return dashDotDot;
    case PenStyle::Solid:
    case PenStyle::Null: break;
  }
  return {};
}

CFont CFont::FromTenthsOfPoint(std::int32_t tenths, std::string face) {
  constexpr std::int64_t pixelsPerInch = 96;
  constexpr std::int64_t tenthsPerInch = 720;
  CFont font;
  font.face = std::move(face);
  const std::int64_t size = tenths < 0 ? -std::int64_t{tenths} : tenths;
  font.height = Saturate(-((size * pixelsPerInch + tenthsPerInch / 2) / tenthsPerInch));
  return font;
}

}  // namespace morvane
