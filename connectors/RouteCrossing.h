#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "drawing/Geometry.h"

namespace morvane {

/// An axis-parallel piece of a route.
struct RouteSegment {
  POINT start;
  POINT end;
};

/// Two pieces that cross or touch, by their places in the route, and where they do.
struct RouteCrossing {
  std::size_t first = 0;
  std::size_t last = 0;
  POINT point;
  friend bool operator==(const RouteCrossing&, const RouteCrossing&) = default;
};

/// The first piece that a later one crosses, with the last one that crosses it. A piece isn't
/// compared with its direct successor. Takes time in the order of n log n for any route.
std::optional<RouteCrossing> FindRouteCrossing(std::span<const RouteSegment> route);

}  // namespace morvane
