// The mouse on a transition: its ends, its segments and the whole of it are dragged.

#include "connectors/AnchorSnap.h"
#include "connectors/HeadLink.h"
#include "connectors/SelectionDrag.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Collection.h"
#include "model/DrawResources.h"
#include "model/GroupMove.h"
#include "model/LineTracker.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

void ForwardDragMove(POINT& client, void* transition) {
  static_cast<Transition*>(transition)->OnDragMove(client);
}

}  // namespace

void Transition::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  if (!IsInSelection()) {
    view->GetSelection().Add(this);
    mgr->BringToFront(this);
    OnSelectionChanged();
  }
  // Handles show on a selected transition only, but they work at the press that selects it.
  activeLink = LinkAt({x, y});
  if (activeLink == nullptr) {
    if ((flags & MK_SHIFT) != 0) DragWhole({x, y});
    return;
  }
  switch (activeLink->kind) {
    case LINK_HEAD: DragHead({x, y}); break;
    case LINK_TAIL: DragTail({x, y}); break;
    default: DragLink({x, y});
  }
  activeLink = nullptr;
  marker.Hide();
}

Link* Transition::LinkAt(POINT client) const {
  Link* link = chain.Head();
  while (link != nullptr && !link->HitHandle(client)) link = link->next;
  return link;
}

/// The state in which an end that is dropped at a point would be caught, and by which anchor.
template <class EndState>
EndState* Transition::StateAt(POINT client, AnchorKey& key) const {
  auto* state = dynamic_cast<EndState*>(mgr->ObjectNear(client, LAYER_STATE));
  return state != nullptr && view->FindAnchorAt(*state, client, key) ? state : nullptr;
}

/// Runs the drag of the grabbed end; gives the point where it is dropped, device pixels.
bool Transition::TrackEnd(POINT press, POINT& drop) {
  POINT end;
  activeLink->GetDragLine(view->ToAbsolute(press), end, end);
  PointTracker tracker(this, ForwardDragMove, true);
  tracker.fixedPoint = tracker.movingPoint = view->ToClient(end);
  if (!tracker.Track(view)) return false;
  // Without a move the end is dropped where it stands, not at the pixel that was hit.
  const POINT own = activeLink->kind == LINK_HEAD ? activeLink->start : activeLink->end;
  const bool moved = tracker.movingPoint != tracker.fixedPoint;
  drop = moved ? tracker.movingPoint : view->ToClient(own);
  return true;
}

void Transition::DragHead(POINT press) {
  POINT drop;
  if (!TrackEnd(press, drop)) return;
  AnchorKey key;
  if (auto* state = StateAt<StartableState>(drop, key)) {
    AttachSource(state, key);
  } else {
    if (source != nullptr) source->RemoveTransition(this);
    MoveSourceEnd(FreePlace(view->ToAbsolute(drop), sourceKey.side));
  }
}

void Transition::DragTail(POINT press) {
  POINT drop;
  if (!TrackEnd(press, drop)) return;
  AnchorKey key;
  if (auto* state = StateAt<EndableState>(drop, key)) {
    AttachTarget(state, key);
  } else {
    MoveTargetFree(drop.x, drop.y);
  }
}

void Transition::DragLink(POINT press) {
  POINT lineStart;
  POINT lineEnd;
  activeLink->GetDragLine(view->ToAbsolute(press), lineStart, lineEnd);
  LineTracker tracker(this, ForwardDragMove);
  tracker.start = tracker.movedStart = view->ToClient(lineStart);
  tracker.end = tracker.movedEnd = view->ToClient(lineEnd);
  if (!tracker.Track(view)) return;
  BuildRegion();
  activeLink->MoveTo(ChartView::OnChart(view->ToAbsolute(tracker.movedStart)));
  RefreshRoute();
}

void Transition::DragWhole(POINT press) {
  PointTracker tracker(this, ForwardDragMove, false);
  dragOrigin = view->ToModel(press);
  DragSelection(tracker, *mgr, press);
}

void Transition::OnDragMove(POINT& client) {
  if (activeLink == nullptr) {
    const GroupMove move(*mgr);
    move.ShowGhost(move.Limit(view->ToModel(client) - dragOrigin), nullptr);
    return;
  }
  const Connectable* candidate = nullptr;
  if (activeLink->kind == LINK_HEAD) {
    candidate = dynamic_cast<StartableState*>(mgr->ObjectNear(client, LAYER_STATE));
  } else if (activeLink->kind == LINK_TAIL) {
    candidate = dynamic_cast<EndableState*>(mgr->ObjectNear(client, LAYER_STATE));
  }
  SnapToAnchor(candidate, *view, marker, client);
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
