#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class CDC;
struct DialogControl;

/// The combo of line styles: its value is an index into `kLineStyles`.
class PenPicker {
 public:
  /// Makes an item for each style and selects the first.
  static void Attach(DialogControl& combo);
  /// Paints an item into a rectangle, in pixels of the context.
  static void PaintItem(CDC& dc, int index, const RECT& r, bool selected);
};

}  // namespace morvane
