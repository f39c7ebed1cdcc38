#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class CDC;
struct DialogControl;

/// The combo of line colours: its value is an index into `kLineColours`.
class CColorComboEx {
 public:
  /// Makes an item for each colour and selects the first.
  static void Attach(DialogControl& combo);
  /// Paints an item into a rectangle, in pixels of the context.
  static void PaintItem(CDC& dc, int index, const RECT& r, bool selected);
};

}  // namespace morvane
