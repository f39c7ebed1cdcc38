#include "connectors/RouteSketch.h"

#include <utility>

#include "connectors/HeadLink.h"
#include "connectors/TailLink.h"
#include "model/AnchorKey.h"
#include "model/ShapeGeometry.h"

namespace morvane {

RouteSketch::RouteSketch(std::vector<ChainRecord> route) : first(std::move(route)) {
  chain.Build(first);
}

void RouteSketch::MoveSource(POINT anchor, std::uint16_t side) {
  chain.Head()->MoveEnds(anchor, StepPoint(anchor, side));
  Untangle();
}

void RouteSketch::MoveTarget(POINT anchor, std::uint16_t side) {
  chain.Tail()->MoveEnds(StepPoint(anchor, side), anchor);
  Untangle();
}

void RouteSketch::Untangle() {
  if (!chain.Untangle()) chain.Build(first);
}

std::vector<ChainRecord> FreeRoute(POINT source, POINT target) {
  const POINT stub = StepPoint(source, SIDE_BOTTOM);
  return {{LINK_HEAD, source, stub},
          {LINK_V, stub, target},
          {LINK_TAIL, StepPoint(target, SIDE_TOP), target}};
}

}  // namespace morvane
