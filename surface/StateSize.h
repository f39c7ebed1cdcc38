#pragma once

#include <cstdint>

#include "drawing/Geometry.h"

namespace morvane {

class ChartView;
class GenericState;

/// How large a state is that shows its texts and no more, model units.
struct StateSize {
  SIZE size;
  std::int32_t head = 0;  ///< down to where its texts end

  static StateSize Of(const GenericState& state, const ChartView& view);
};

}  // namespace morvane
