#include "connectors/SelectionDrag.h"

#include "model/Collection.h"
#include "surface/LayoutMgr.h"
#include "surface/PointTracker.h"

void DragSelection(PointTracker& tracker, LayoutMgr& view, POINT press) {
  tracker.fixedPoint = tracker.movingPoint = press;
  Collection& selection = view.GetSelection();
  if (tracker.Track(&view)) {
    POINT offset = view.ToModel(tracker.movingPoint) - view.ToModel(press);
    if (offset != POINT{}) selection.Broadcast(BROADCAST_MOVE, &offset, nullptr);
  }
  selection.Broadcast(BROADCAST_END_GHOST, nullptr, nullptr);
}
