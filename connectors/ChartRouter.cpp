#include "connectors/ChartRouter.h"

#include "connectors/Note.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

ChartRouter::ChartRouter(const ModelMgr& model) {
  for (const Shape* shape : model.Objects()) {
    const bool isState = shape->GetLayer() == LAYER_STATE;
    if (isState || dynamic_cast<const Note*>(shape) != nullptr) {
      boxes.push_back({shape, shape->GetBounds()});
    }
  }
}

std::vector<ChainRecord> ChartRouter::RouteOf(const Transition& transition) const {
  const RouteEnd from = transition.SourceEnd();
  const RouteEnd to = transition.TargetEnd();
  const State* source = transition.GetSource();
  const State* target = transition.GetTarget();
  std::vector<RECT> own;
  std::vector<RECT> others;
  for (const Box& box : boxes) {
    (box.shape == source || box.shape == target ? own : others).push_back(box.rect);
  }
  const std::vector<POINT> corners = FindOrthogonalRoute(from, to, own, others);

  std::vector<ChainRecord> records{{LINK_HEAD, from.anchor, corners.front()}};
  for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
    const bool level = corners[i].y == corners[i + 1].y;
    records.push_back({level ? LINK_H : LINK_V, corners[i], corners[i + 1]});
  }
  records.push_back({LINK_TAIL, corners.back(), to.anchor});
  return records;
}

}  // namespace morvane
