#include "platform/DrawingTools.h"

#include <utility>

CFont CFont::FromTenthsOfPoint(std::int32_t tenths, std::string face) {
  constexpr std::int64_t pixelsPerInch = 96;
  constexpr std::int64_t tenthsPerInch = 720;
  CFont font;
  font.face = std::move(face);
  const std::int64_t size = tenths < 0 ? -std::int64_t{tenths} : tenths;
  font.height = Saturate(-((size * pixelsPerInch + tenthsPerInch / 2) / tenthsPerInch));
  return font;
}
