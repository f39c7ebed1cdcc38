#include "connectors/NewObjects.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "connectors/ChartRouter.h"
#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/RouteSketch.h"
#include "connectors/Transition.h"
#include "model/AnchorOffer.h"
#include "model/ChartView.h"
#include "model/Defaults.h"
#include "model/ModelMgr.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace morvane {

namespace {

/// Half the height of a transition that is inserted by itself, and of a line's box, model units.
constexpr POINT kNewTransitionReach{0, 4};
constexpr std::int32_t kNewLineReach = 8;

POINT ModelPointOfDrop(const ModelMgr& model, POINT& client) {
  client = client + model.GetView()->GetScrollPosition();
  return model.GetView()->ToModel(client);
}

/// The nearest point of the chart around which there is room on the left and above.
POINT WithRoom(POINT p, POINT reach) { return {std::max(p.x, reach.x), std::max(p.y, reach.y)}; }

/// An object of a class whose new ones have a default rectangle.
template <class Made, class... Rest>
Made* InsertAt(ModelMgr& model, POINT& client, Rest... rest) {
  const RECT rect = Made::DefaultRect() + ModelPointOfDrop(model, client);
  auto made = std::make_unique<Made>(model.NextId(), model.GetView(), rect, rest...);
  Made* object = made.get();
  model.Adopt(std::move(made));
  return object;
}

Transition* NewTransition(ModelMgr& model, POINT& client) {
  const POINT p = WithRoom(ModelPointOfDrop(model, client), kNewTransitionReach);
  auto made = std::make_unique<Transition>(model.NextId(), model.GetView(), p - kNewTransitionReach,
                                           p + kNewTransitionReach);
  Transition* transition = made.get();
  model.Adopt(std::move(made));
  return transition;
}

}  // namespace

void InsertGenericState(ModelMgr& model, POINT& client) {
  InsertAt<GenericState>(model, client, Defaults::Instance().StateName);
}

void InsertInitialState(ModelMgr& model, POINT& client) { InsertAt<InitialState>(model, client); }

void InsertFinalState(ModelMgr& model, POINT& client) { InsertAt<FinalState>(model, client); }

Mesg* InsertMesg(ModelMgr& model, POINT& client, Transition* transition) {
  return InsertAt<Mesg>(model, client, transition);
}

void InsertNote(ModelMgr& model, POINT& client) { InsertAt<Note>(model, client); }

void InsertTransition(ModelMgr& model, POINT& client) { NewTransition(model, client); }

void InsertLine(ModelMgr& model, POINT& client) {
  const POINT p = WithRoom(ModelPointOfDrop(model, client), {kNewLineReach, kNewLineReach});
  model.Adopt(std::make_unique<Line>(model.NextId(), model.GetView(),
                                     p + POINT{-kNewLineReach, kNewLineReach},
                                     p + POINT{kNewLineReach, -kNewLineReach}));
}

std::vector<POINT> ConnectionRoute(const ModelMgr& model, const AnchorOffer& from,
                                   const AnchorOffer& to, POINT endPoint) {
  const RouteEnd source{*from.shape->AnchorAt(from.key), from.key.side};
  const RouteEnd target = to ? RouteEnd{*to.shape->AnchorAt(to.key), to.key.side}
                             : RouteEnd{model.GetView()->ToAbsolute(endPoint), SIDE_TOP};
  RouteSketch sketch(
      FreeRoute(source.anchor - kNewTransitionReach, source.anchor + kNewTransitionReach));
  sketch.MoveSource(source.anchor, source.side);
  sketch.MoveTarget(target.anchor, target.side);
  const auto* fromShape = dynamic_cast<const Shape*>(from.shape);
  const auto* toShape = dynamic_cast<const Shape*>(to.shape);
  if (RunsThroughEnds(sketch.Chain(), fromShape, toShape)) {
    sketch.Lay(ChartRouter(model).RouteBetween(source, target, fromShape, toShape));
  }
  return sketch.Points();
}

Transition* ConnectAnchors(ModelMgr& model, StartableState* from, EndableState* to,
                           const AnchorKey* fromKey, const AnchorKey* toKey,
                           const POINT* endPoint) {
  const State* fromState = from;
  const State* toState = to;
  if (fromState == toState && *fromKey == *toKey) return nullptr;
  const POINT* anchor = from->AnchorAt(*fromKey);
  if (anchor == nullptr) return nullptr;

  POINT client = model.GetView()->ToClient(*anchor);
  Transition* transition = NewTransition(model, client);
  transition->AttachSource(from, *fromKey);
  if (to != nullptr) {
    transition->AttachTarget(to, *toKey);
  } else {
    transition->MoveTargetFree(endPoint->x, endPoint->y);
  }
  if (transition->RunsThroughOwnState()) transition->Reroute(ChartRouter(model));
  return transition;
}

}  // namespace morvane
