#pragma once

#include <optional>

#include "drawing/Geometry.h"

namespace morvane {

class ModelMgr;
class Shape;

/// A place where an object of a size can stand in an area without touching another one, as near to
/// a point as there is: the upper left corner. All in absolute model units. Inside `holder` it
/// stands below the name; without one it stands in no state.
std::optional<POINT> FindFreePlace(const ModelMgr& model, SIZE size, const RECT& area, POINT near,
                                   const Shape* holder);

}  // namespace morvane
