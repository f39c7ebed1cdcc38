// The mouse on a transition: its ends, its segments and the whole of it are dragged.

#include "connectors/AnchorSnap.h"
#include "connectors/HeadLink.h"
#include "connectors/RouteSketch.h"
#include "connectors/RouteTracker.h"
#include "connectors/SelectionDrag.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Collection.h"
#include "model/DrawResources.h"
#include "model/LineTracker.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"
#include "model/SelectionMove.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

void ForwardDragMove(POINT& client, void* transition) {
  static_cast<Transition*>(transition)->OnDragMove(client);
}

Connectable* AsSource(Shape& shape) { return dynamic_cast<StartableState*>(&shape); }

Connectable* AsTarget(Shape& shape) { return dynamic_cast<EndableState*>(&shape); }

}  // namespace

void Transition::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  const bool comesIn = !IsInSelection();
  if (comesIn) {
    view->GetSelection().Add(this);
    OnSelectionChanged();
  }
  // Handles show on a selected transition only, but they work at the press that selects it.
  activeLink = LinkAt({x, y});
  if (activeLink == nullptr) {
    if ((flags & MK_SHIFT) != 0) DragWhole({x, y}, flags);
    return;
  }
  // A click leaves the order of the transitions as it is.
  if (DragActiveLink({x, y}) && comesIn) mgr->BringToFront(this);
  activeLink = nullptr;
  marker.Hide();
}

bool Transition::DragActiveLink(POINT press) {
  switch (activeLink->kind) {
    case LINK_HEAD: return DragHead(press);
    case LINK_TAIL: return DragTail(press);
    default: return DragLink(press);
  }
}

Link* Transition::LinkAt(POINT client) const {
  Link* link = chain.Head();
  while (link != nullptr && !link->HitHandle(client)) link = link->next;
  return link;
}

/// Only its handles and the drag of the whole are the transition's own.
bool Transition::YieldsToConnection(unsigned flags, POINT client) {
  return (flags & MK_SHIFT) == 0 && (!IsInSelection() || LinkAt(client) == nullptr);
}

/// The route that comes if the end in hand is let go at a point.
std::vector<POINT> Transition::RouteWithEndAt(POINT client) const {
  const POINT place = offer ? *offer.shape->AnchorAt(offer.key) : view->ToAbsolute(client);
  RouteSketch sketch(Route());
  if (activeLink->kind == LINK_HEAD) {
    sketch.MoveSource(place, offer ? offer.key.side : sourceKey.side);
  } else {
    sketch.MoveTarget(place, offer ? offer.key.side : targetKey.side);
  }
  return sketch.Points();
}

/// Runs the drag of the grabbed end; gives the point where it is dropped, device pixels.
bool Transition::TrackEnd(POINT press, POINT& drop) {
  RouteTracker tracker(this, ForwardDragMove, *view,
                       [this](POINT client) { return RouteWithEndAt(client); });
  tracker.fixedPoint = tracker.movingPoint = press;
  if (!tracker.Track(view, press)) return false;
  drop = tracker.movingPoint;
  return true;
}

bool Transition::DragHead(POINT press) {
  POINT drop;
  if (!TrackEnd(press, drop)) return false;
  if (offer) {
    AttachSource(dynamic_cast<StartableState*>(offer.shape), offer.key);
  } else {
    if (source != nullptr) source->RemoveTransition(this);
    MoveSourceEnd(FreePlace(view->ToAbsolute(drop), sourceKey.side));
  }
  return true;
}

bool Transition::DragTail(POINT press) {
  POINT drop;
  if (!TrackEnd(press, drop)) return false;
  if (offer) {
    AttachTarget(dynamic_cast<EndableState*>(offer.shape), offer.key);
  } else {
    MoveTargetFree(drop.x, drop.y);
  }
  return true;
}

/// The segment goes as far as the pointer does, wherever on it the press was.
bool Transition::DragLink(POINT press) {
  POINT lineStart;
  POINT lineEnd;
  activeLink->GetDragLine(activeLink->start, lineStart, lineEnd);
  LineTracker tracker(this, ForwardDragMove);
  tracker.start = tracker.movedStart = view->ToClient(lineStart);
  tracker.end = tracker.movedEnd = view->ToClient(lineEnd);
  grabOffset = tracker.start - press;
  if (!tracker.Track(view, press)) return false;
  BuildRegion();
  activeLink->MoveTo(ChartView::OnChart(view->ToAbsolute(tracker.movedStart)));
  RefreshRoute();
  return true;
}

void Transition::DragWhole(POINT press, unsigned flags) {
  PointTracker tracker(this, ForwardDragMove, false);
  SelectionMove move(*mgr, flags);
  wholeDrag = &move;
  dragOrigin = view->ToModel(press);
  DragSelection(tracker, move, *view, press);
  wholeDrag = nullptr;
}

void Transition::OnDragMove(POINT& client) {
  if (activeLink == nullptr) {
    wholeDrag->Show(view->ToModel(client) - dragOrigin);
    return;
  }
  if (activeLink->IsSegment()) {
    client = view->ToDevice(view->ToModel(client + grabOffset));
    return;
  }
  offer = mgr->AnchorNear(client, LAYER_STATE, activeLink->kind == LINK_HEAD ? AsSource : AsTarget);
  SnapToAnchor(offer, *view, marker, client);
}

bool Transition::OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
  const DrawResources& resources = DrawResources::Instance();
  Cursor cursor = resources.overLine;
  if (IsInSelection()) {
    if (view->IsShiftDown()) cursor = resources.moveWhole;
    if (const Link* link = LinkAt(view->GetCursorPos())) {
      cursor = link->kind == LINK_V   ? resources.sizeWestEast
               : link->kind == LINK_H ? resources.sizeNorthSouth
                                      : resources.endHandle;
    }
  }
  view->SetCursor(cursor);
  return true;
}

}  // namespace morvane
