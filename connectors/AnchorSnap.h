#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class AnchorMarker;
class Connectable;
class ChartView;

/// What the end of a connector does while it is dragged: at an anchor of `candidate`, which may be
/// null, it jumps there and the marker shows; elsewhere it goes to whole model units and the marker
/// hides. The point is in device pixels, in and out. True at an anchor.
bool SnapToAnchor(const Connectable* candidate, ChartView& view, AnchorMarker& marker,
                  POINT& client);

}  // namespace morvane
