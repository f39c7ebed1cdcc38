#include "drawing/Mapping.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

std::int32_t Round(double v) {
  constexpr double low = std::numeric_limits<std::int32_t>::min();
  constexpr double high = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::floor(v + 0.5), low, high));
}

std::int32_t Magnitude(std::int32_t v) { return v < 0 ? SubSat(0, v) : v; }

}  // namespace

void Mapping::SetMode(MapMode newMode) {
  mode = newMode;
  if (mode == MapMode::Text) {
    windowExt = {1, 1};
    viewportExt = {1, 1};
  }
}

void Mapping::SetWindowExt(SIZE logical) {
  if (mode == MapMode::Text || logical.cx == 0 || logical.cy == 0) return;
  windowExt = logical;
}

void Mapping::SetViewportExt(SIZE device) {
  if (mode == MapMode::Text || device.cx == 0 || device.cy == 0) return;
  const double across = static_cast<double>(Magnitude(device.cx)) / Magnitude(windowExt.cx);
  const double down = static_cast<double>(Magnitude(device.cy)) / Magnitude(windowExt.cy);
  viewportExt = device;
  if (across > down) viewportExt.cx = Round(down * windowExt.cx);
  if (down > across) viewportExt.cy = Round(across * windowExt.cy);
}

double Mapping::Scale() const { return static_cast<double>(viewportExt.cx) / windowExt.cx; }

POINT Mapping::ToDevice(POINT logical) const {
  if (mode == MapMode::Text) return logical + viewportOrg;
  const double scale = Scale();
  return {Round(logical.x * scale + viewportOrg.x), Round(logical.y * scale + viewportOrg.y)};
}

RECT Mapping::ToDevice(const RECT& logical) const {
  const POINT topLeft = ToDevice(TopLeft(logical));
  const POINT bottomRight = ToDevice(BottomRight(logical));
  return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

POINT Mapping::ToLogical(POINT device) const {
  if (mode == MapMode::Text) return device - viewportOrg;
  const double scale = Scale();
  return {Round((static_cast<double>(device.x) - viewportOrg.x) / scale),
          Round((static_cast<double>(device.y) - viewportOrg.y) / scale)};
}

RECT Mapping::ToLogicalCovering(const RECT& device) const {
  const POINT topLeft = ToLogical(TopLeft(device));
  const POINT bottomRight = ToLogical(BottomRight(device));
  return InflateRect({topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}, 1);
}

}  // namespace morvane
