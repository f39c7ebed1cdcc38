#pragma once

#include <cstdint>

#include "drawing/Geometry.h"

namespace morvane {

/// The classes of links as numbers of the model text.
enum LinkKind : std::int32_t { LINK_V = 0, LINK_H = 1, LINK_HEAD = 2, LINK_TAIL = 3 };

/// One link as it is stored: kind, and its two ends in model units. A text can hold any number as
/// the kind.
struct ChainRecord {
  std::int32_t kind = LINK_V;
  POINT start;
  POINT end;
  friend bool operator==(const ChainRecord&, const ChainRecord&) = default;
};

}  // namespace morvane
