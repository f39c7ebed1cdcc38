#include "surface/ConnectionDrag.h"

#include "connectors/AnchorSnap.h"
#include "connectors/NewObjects.h"
#include "connectors/RouteTracker.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/StartableState.h"
#include "surface/LayoutMgr.h"
#include "surface/ToolDrag.h"

namespace morvane {

/// The anchor at which a press starts a connection. What lies on top there comes first, unless it
/// yields.
AnchorOffer ConnectionDrag::SourceAt(unsigned flags, POINT client) const {
  if (view.GetTools().IsRunning() || (flags & MK_CONTROL) != 0) return {};
  Shape* hit = view.GetModel().ObjectAt(client);
  if (hit != nullptr && !hit->YieldsToConnection(flags, client)) return {};
  return view.GetModel().AnchorNear(
      client, LAYER_STATE, [](Shape& shape) { return dynamic_cast<StartableState*>(&shape); });
}

void ConnectionDrag::ShowHover(unsigned flags, POINT client) {
  SnapToAnchor(SourceAt(flags, client), view, sourceMark, client);
}

void ConnectionDrag::HideHover() {
  sourceMark.Hide();
  targetMark.Hide();
}

void ConnectionDrag::ForwardMove(POINT& client, void* drag) {
  static_cast<ConnectionDrag*>(drag)->OnMove(client);
}

void ConnectionDrag::OnMove(POINT& client) {
  target = view.GetModel().AnchorNear(
      client, LAYER_STATE, [](Shape& shape) { return dynamic_cast<EndableState*>(&shape); });
  // The anchor where it starts offers itself for nothing.
  SnapToAnchor(target == source ? AnchorOffer{} : target, view, targetMark, client);
}

/// A drop on the anchor where it starts makes nothing, nor one on a state in which nothing can end.
bool ConnectionDrag::LeadsBack(POINT client) const {
  if (target) return target == source;
  return dynamic_cast<EndableState*>(source.shape) == nullptr &&
         view.FindShapeNear(client, LAYER_STATE) == dynamic_cast<StartableState*>(source.shape);
}

std::vector<POINT> ConnectionDrag::RouteTo(POINT client) const {
  if (LeadsBack(client)) return {};
  return ConnectionRoute(view.GetModel(), source, target, client);
}

ChartView::ConnectionPress ConnectionDrag::Begin(unsigned flags, POINT press) {
  source = SourceAt(flags, press);
  target = {};
  if (!source) return ChartView::ConnectionPress::NotHere;
  POINT anchor = press;
  SnapToAnchor(source, view, sourceMark, anchor);
  RouteTracker tracker(this, ForwardMove, view, [this](POINT client) { return RouteTo(client); });
  tracker.fixedPoint = tracker.movingPoint = press;
  const bool dropped = tracker.Track(&view, press);
  HideHover();
  if (dropped) return Connect(tracker.movingPoint);
  return tracker.WasClick() ? ChartView::ConnectionPress::Click : ChartView::ConnectionPress::Used;
}

ChartView::ConnectionPress ConnectionDrag::Connect(POINT drop) {
  if (LeadsBack(drop)) {
    return target ? ChartView::ConnectionPress::Used : ChartView::ConnectionPress::Click;
  }
  auto* from = dynamic_cast<StartableState*>(source.shape);
  ConnectAnchors(view.GetModel(), from, dynamic_cast<EndableState*>(target.shape), &source.key,
                 &target.key, &drop);
  return ChartView::ConnectionPress::Used;
}

}  // namespace morvane
