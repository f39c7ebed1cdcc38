#include "layout/GridLayout.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

/// Width to height of the whole.
constexpr double kAspect = 1.6;

}  // namespace

std::vector<POINT> GridLayout::Places(const std::vector<SIZE>& sizes, std::int32_t gap) {
  double area = 0;
  std::int32_t widest = 0;
  for (const SIZE& size : sizes) {
    area += static_cast<double>(size.cx + gap) * static_cast<double>(size.cy + gap);
    widest = std::max(widest, size.cx);
  }
  const auto room = std::max(widest, static_cast<std::int32_t>(std::sqrt(area * kAspect)));
  std::vector<POINT> places;
  POINT next{};
  std::int32_t rowHeight = 0;
  for (const SIZE& size : sizes) {
    if (next.x > 0 && next.x + size.cx > room) {
      next = {0, next.y + rowHeight + gap};
      rowHeight = 0;
    }
    places.push_back(next);
    next.x += size.cx + gap;
    rowHeight = std::max(rowHeight, size.cy);
  }
  return places;
}

SIZE ExtentOf(const std::vector<SIZE>& sizes, const std::vector<POINT>& places) {
  SIZE extent{};
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    extent.cx = std::max(extent.cx, places[i].x + sizes[i].cx);
    extent.cy = std::max(extent.cy, places[i].y + sizes[i].cy);
  }
  return extent;
}

}  // namespace morvane
