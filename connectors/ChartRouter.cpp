#include "connectors/ChartRouter.h"

#include "connectors/HeadLink.h"
#include "connectors/LinkChain.h"
#include "connectors/Note.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/TailLink.h"
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

ChartRouter::ChartRouter(const std::vector<const Shape*>& obstacles) {
  for (const Shape* shape : obstacles) boxes.push_back({shape, shape->GetBounds()});
}

std::vector<ChainRecord> ChartRouter::RouteOf(const Transition& transition) const {
  const State* source = transition.GetSource();
  const State* target = transition.GetTarget();
  return RouteBetween(transition.SourceEnd(), transition.TargetEnd(), source, target);
}

std::vector<ChainRecord> ChartRouter::RouteBetween(const RouteEnd& from, const RouteEnd& to,
                                                   const Shape* source, const Shape* target) const {
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

bool RunsThroughEnds(const LinkChain& chain, const Shape* source, const Shape* target) {
  const auto meets = [&chain](const Shape* shape, POINT otherStub) {
    if (shape == nullptr || PieceTouches(otherStub, otherStub, shape->GetBounds())) return false;
    for (const Link* link = chain.Head()->next; link->IsSegment(); link = link->next) {
      if (PieceTouches(link->start, link->end, shape->GetBounds())) return true;
    }
    return false;
  };
  return meets(source, chain.Tail()->start) || meets(target, chain.Head()->end);
}

}  // namespace morvane
