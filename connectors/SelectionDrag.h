#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class ChartView;
class PointTracker;
class SelectionMove;

/// Drags the whole selection by one of its connectors, from a point in device pixels until the
/// button is let go. A mere click moves nothing and lets go of nothing.
void DragSelection(PointTracker& tracker, SelectionMove& move, ChartView& view, POINT press);

}  // namespace morvane
