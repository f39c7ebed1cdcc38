#pragma once

#include "drawing/Geometry.h"

namespace morvane {

/// The square of an odd number of pixels, 2 * reach + 1, whose middle pixel is `c`.
constexpr RECT HandleSquare(POINT c, std::int32_t reach) {
  return {SubSat(c.x, reach), SubSat(c.y, reach), AddSat(c.x, reach + 1), AddSat(c.y, reach + 1)};
}

}  // namespace morvane
