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
#include "model/SelectionMove.h"

namespace morvane {

namespace {

void ForwardDragMove(POINT& client, void* line) { static_cast<Line*>(line)->OnDragMove(client); }

}  // namespace

void Line::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  if (!IsInSelection()) {
    view->GetSelection().Add(this);
    InvalidateHandles();
  }
  const POINT press{x, y};
  if (PtInRect(GetStartHandle(), press)) {
    DragEnd(start, startShape, startKey, press);
  } else if (PtInRect(GetEndHandle(), press)) {
    DragEnd(end, endShape, endKey, press);
  } else {
    DragWhole(press, flags);
  }
  marker.Hide();
}

/// Drags one end, with the rubber line from the other one.
void Line::DragEnd(POINT& dragged, Connectable*& shape, AnchorKey& key, POINT press) {
  const POINT other = &dragged == &start ? end : start;
  PointTracker tracker(this, ForwardDragMove, true);
  tracker.fixedPoint = tracker.movingPoint = view->ToClient(other);
  if (!tracker.Track(view, press)) return;
  const POINT drop = offer ? *offer.shape->AnchorAt(offer.key)
                           : ChartView::OnChart(view->ToAbsolute(tracker.movingPoint));
  if (drop == other) return;

  BuildRegion();
  if (shape != nullptr) shape->RemoveConnector(this);
  shape = offer.shape;
  if (offer) {
    key = offer.key;
    shape->AddConnector(this);
  }
  dragged = drop;
  RebuildRegion();
}

void Line::DragWhole(POINT press, unsigned flags) {
  PointTracker tracker(this, ForwardDragMove, true);
  SelectionMove move(*mgr, flags);
  DragSelection(tracker, move, *view, press);
}

void Line::OnDragMove(POINT& client) {
  offer = mgr->AnchorNear(client, LAYER_ALL,
                          [](Shape& shape) { return dynamic_cast<Connectable*>(&shape); });
  SnapToAnchor(offer, *view, marker, client);
}

bool Line::IsOnEnd(POINT client) const {
  return PtInRect(GetStartHandle(), client) || PtInRect(GetEndHandle(), client);
}

/// A selected line is dragged, and so are its ends.
bool Line::YieldsToConnection(unsigned flags, POINT /*client*/) {
  return (flags & MK_SHIFT) == 0 && !IsInSelection();
}

bool Line::OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
  const DrawResources& resources = DrawResources::Instance();
  Cursor cursor = resources.overLine;
  if (IsInSelection()) {
    cursor = IsOnEnd(view->GetCursorPos()) ? resources.lineEnd : resources.moveWhole;
  }
  view->SetCursor(cursor);
  return true;
}

}  // namespace morvane
