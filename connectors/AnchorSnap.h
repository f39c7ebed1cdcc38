#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class AnchorMarker;
class ChartView;
struct AnchorOffer;

/// What the end of a connector does while it is dragged: it jumps to the anchor that is offered,
/// and the marker shows there; without one it goes to whole model units and the marker hides. The
/// point is in device pixels, in and out.
void SnapToAnchor(const AnchorOffer& offer, ChartView& view, AnchorMarker& marker, POINT& client);

}  // namespace morvane
