#pragma once

#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class ChartView;
class EndableState;
class Mesg;
class ModelMgr;
class StartableState;
class Transition;
struct AnchorKey;
struct AnchorOffer;

// New objects of a model with a view. `client` is a client point, device pixels, to which the
// scroll position is added in place.
void InsertGenericState(ModelMgr& model, POINT& client);
void InsertInitialState(ModelMgr& model, POINT& client);
void InsertFinalState(ModelMgr& model, POINT& client);
Mesg* InsertMesg(ModelMgr& model, POINT& client, Transition* transition);
void InsertNote(ModelMgr& model, POINT& client);
void InsertTransition(ModelMgr& model, POINT& client);
void InsertLine(ModelMgr& model, POINT& client);
/// The route, model units, of the transition that `ConnectAnchors` would make from an anchor to
/// another one, or to a client point if none is offered.
std::vector<POINT> ConnectionRoute(const ModelMgr& model, const AnchorOffer& from,
                                   const AnchorOffer& to, POINT endPoint);
/// A transition between two anchors. Without `to` its free end goes to `endPoint`, a client point.
/// Gives it; null from an anchor to the same anchor, where nothing is made.
Transition* ConnectAnchors(ModelMgr& model, StartableState* from, EndableState* to,
                           const AnchorKey* fromKey, const AnchorKey* toKey, const POINT* endPoint);

}  // namespace morvane
