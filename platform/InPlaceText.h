#pragma once

#include <string>

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"

namespace morvane {

/// A text that the user edits where it stands in a window.
struct InPlaceText {
  std::string label;  ///< what it is, for who listens instead of looking
  std::string text;   ///< as the model holds it: line breaks are CR LF
  RECT client;        ///< where it stands, device pixels of the client area
  CFont font;         ///< its height in device pixels
  bool centred = false;
  bool severalLines = false;  ///< Return breaks a line; else it ends the editing
};

}  // namespace morvane
