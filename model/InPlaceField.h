#pragma once

#include <string>

#include "drawing/Geometry.h"

namespace morvane {

/// The text of a shape that is edited where it stands on the chart.
struct InPlaceField {
  std::string label;  ///< what it is, in the user's language
  std::string text;
  RECT area;  ///< where it is painted, logical units
  bool bold = false;
  bool centred = false;
  bool severalLines = false;
};

}  // namespace morvane
