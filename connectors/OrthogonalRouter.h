#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// An end of a route: the anchor, and the side of the shape on which it stands. From an unknown
/// side the route may leave in any direction.
struct RouteEnd {
  POINT anchor;
  std::uint16_t side = 0;
};

/// The corners of a route of horizontal and vertical pieces with few bends, from the stub point of
/// one end to that of the other, both included. It goes round `own`, the shapes at its ends, unless
/// there is no way at all, and round `others` where it can; what surrounds an end is no obstacle.
/// It stays on the chart, where no coordinate is below 0. All in model units; equal input gives
/// equal routes.
std::vector<POINT> FindOrthogonalRoute(const RouteEnd& from, const RouteEnd& to,
                                       std::span<const RECT> own, std::span<const RECT> others);

/// A horizontal or vertical piece touches a rectangle, whose edges all belong to it.
bool PieceTouches(POINT start, POINT end, const RECT& r);

}  // namespace morvane
