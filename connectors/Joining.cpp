#include "connectors/Joining.h"

#include <memory>
#include <utility>

#include "connectors/AnchorChoice.h"
#include "connectors/ChartRouter.h"
#include "connectors/Line.h"
#include "connectors/NewObjects.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

Shape* JoinByTransition(ModelMgr& model, Shape& from, Shape& to) {
  auto* source = dynamic_cast<StartableState*>(&from);
  auto* target = dynamic_cast<EndableState*>(&to);
  if (source == nullptr || target == nullptr) return nullptr;
  const AnchorPair anchors = BestAnchors(model, *source, *target);
  if (!anchors.from) return nullptr;
  Transition* made =
      ConnectAnchors(model, source, target, &anchors.from.key, &anchors.to.key, nullptr);
  if (made != nullptr) made->Reroute(ChartRouter(model));
  return made;
}

Shape* JoinByLine(ModelMgr& model, Shape& from, Shape& to) {
  if (!CanHaveLine(from, to)) return nullptr;
  const AnchorPair anchors =
      NearestAnchors(dynamic_cast<Connectable&>(from), dynamic_cast<Connectable&>(to));
  if (!anchors.from) return nullptr;
  auto made = std::make_unique<Line>(model.NextId(), model.GetView(), anchors.from, anchors.to);
  Line* line = made.get();
  model.Adopt(std::move(made));
  return line;
}

}  // namespace

bool CanHaveLine(const Shape& from, const Shape& to) {
  return &from != &to && dynamic_cast<const Connectable*>(&from) != nullptr &&
         dynamic_cast<const Connectable*>(&to) != nullptr;
}

Joint JointBetween(const Shape& from, const Shape& to) {
  const bool areStates = from.GetLayer() == LAYER_STATE && to.GetLayer() == LAYER_STATE;
  if (!areStates) return CanHaveLine(from, to) ? Joint::Line : Joint::None;
  const bool canStart = dynamic_cast<const StartableState*>(&from) != nullptr;
  const bool canEnd = dynamic_cast<const EndableState*>(&to) != nullptr;
  return canStart && canEnd ? Joint::Transition : Joint::None;
}

Shape* Join(ModelMgr& model, Shape& from, Shape& to, Joint joint) {
  switch (joint) {
    case Joint::Transition: return JoinByTransition(model, from, to);
    case Joint::Line: return JoinByLine(model, from, to);
    case Joint::None: break;
  }
  return nullptr;
}

}  // namespace morvane
