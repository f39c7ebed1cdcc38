#include "model/AnchorZone.h"

#include <algorithm>
#include <cstdlib>

#include "model/ChartView.h"
#include "model/Connectable.h"

namespace morvane {

namespace {

std::int64_t SquaredDistance(POINT a, POINT b) {
  // Farther off than this no anchor is looked for.
  static constexpr std::int64_t far = 1 << 30;
  const auto square = [](std::int64_t way) {
    const std::int64_t limited = std::min(std::abs(way), far);
    return limited * limited;
  };
  return square(std::int64_t{a.x} - b.x) + square(std::int64_t{a.y} - b.y);
}

std::int32_t Depth(std::int64_t size, std::int32_t reach) {
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>((size - AnchorZone::kCore) / 2, 0, reach));
}

}  // namespace

bool AnchorZone::Reaches(const RECT& border) const {
  const RECT r = view.ToClient(border);
  const std::int32_t reach = std::max<std::int32_t>(kReach, view.GetZoom());
  RECT core = InflateRect(r, -Depth(Width(r), reach), -Depth(Height(r), reach));
  RECT around = InflateRect(r, reach);
  // The pixel at which the band ends belongs to it on all sides.
  around.right = AddSat(around.right, 1);
  around.bottom = AddSat(around.bottom, 1);
  if (core.left > r.left) ++core.left;
  if (core.top > r.top) ++core.top;
  return PtInRect(around, client) && !PtInRect(core, client);
}

void AnchorZone::Consider(Connectable& shape) {
  for (const auto& [key, point] : shape.GetAnchors()) {
    const std::int64_t found = SquaredDistance(view.ToClient(point), client);
    if (nearest && found >= distance) continue;
    nearest = {&shape, key};
    distance = found;
  }
}

}  // namespace morvane
