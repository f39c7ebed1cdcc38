#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class ModelMgr;
class PointTracker;

/// Drags the whole selection of a model by one of its connectors, from a point in device pixels
/// until the button is let go. A mere click moves nothing and lets go of nothing.
void DragSelection(PointTracker& tracker, ModelMgr& model, POINT press);

}  // namespace morvane
