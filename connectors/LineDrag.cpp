// The mouse on a line: its ends and the whole of it are dragged.

#include "connectors/AnchorSnap.h"
#include "connectors/Line.h"
#include "connectors/SelectionDrag.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Collection.h"
#include "model/Connectable.h"
#include "model/DrawResources.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"

namespace morvane {

namespace {

void ForwardDragMove(POINT& client, void* line) { static_cast<Line*>(line)->OnDragMove(client); }

}  // namespace

void Line::OnLButtonDown(unsigned /*flags*/, std::int32_t x, std::int32_t y) {
  if (!IsInSelection()) {
    view->GetSelection().Add(this);
    InvalidateHandles();
  }
  const POINT press{x, y};
  if (PtInRect(GetStartHandle(), press)) {
    DragEnd(start, startShape, startKey, end);
  } else if (PtInRect(GetEndHandle(), press)) {
    DragEnd(end, endShape, endKey, start);
  } else {
    DragWhole(press);
  }
  marker.Hide();
}

/// Drags one end, with the rubber line from the other one. The end takes the point where the drag
/// ended; it comes onto the anchor itself when the shape moves the next time.
void Line::DragEnd(POINT& dragged, Connectable*& shape, AnchorKey& key, POINT other) {
  PointTracker tracker(this, ForwardDragMove, true);
  tracker.fixedPoint = tracker.movingPoint = view->ToClient(other);
  endInHand = true;
  const bool dropped = tracker.Track(view);
  // Where the line lay before it must not keep the end from what it is dropped on.
  Connectable* target = ConnectableAt(tracker.movingPoint);
  endInHand = false;
  const POINT drop = ChartView::OnChart(view->ToAbsolute(tracker.movingPoint));
  if (!dropped || drop == other) return;

  BuildRegion();
  AnchorKey found;
  if (target != nullptr && !target->FindAnchorNear(view->ToLogical(drop), found)) target = nullptr;
  if (shape != nullptr) shape->RemoveConnector(this);
  shape = target;
  if (target != nullptr) {
    key = found;
    target->AddConnector(this);
  }
  dragged = drop;
  RebuildRegion();
}

/// The top object under a client point, if it has anchors. The line itself is out of the question
/// while its end is in hand.
Connectable* Line::ConnectableAt(POINT client) const {
  return dynamic_cast<Connectable*>(mgr->ObjectNear(client, LAYER_ALL));
}

void Line::DragWhole(POINT press) {
  PointTracker tracker(this, ForwardDragMove, true);
  DragSelection(tracker, *mgr, press);
}

void Line::OnDragMove(POINT& client) { SnapToAnchor(ConnectableAt(client), *view, marker, client); }

bool Line::HitTestNear(const POINT& model) const {
  return !endInHand && ComplexShape::HitTestNear(model);
}

bool Line::OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
  const DrawResources& resources = DrawResources::Instance();
  Cursor cursor = resources.overLine;
  if (IsInSelection()) {
    const POINT pointer = view->GetCursorPos();
    const bool onEnd = PtInRect(GetStartHandle(), pointer) || PtInRect(GetEndHandle(), pointer);
    cursor = onEnd ? resources.lineEnd : resources.moveWhole;
  }
  view->SetCursor(cursor);
  return true;
}

}  // namespace morvane
