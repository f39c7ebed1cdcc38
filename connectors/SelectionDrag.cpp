#include "connectors/SelectionDrag.h"

#include "model/ChartView.h"
#include "model/Collectable.h"
#include "model/Collection.h"
#include "model/PointTracker.h"

namespace morvane {

void DragSelection(PointTracker& tracker, ChartView& view, POINT press) {
  tracker.fixedPoint = tracker.movingPoint = press;
  Collection& selection = view.GetSelection();
  if (tracker.Track(&view, press)) {
    POINT offset = view.ToModel(tracker.movingPoint) - view.ToModel(press);
    if (offset != POINT{}) selection.Broadcast(BROADCAST_MOVE, &offset, nullptr);
  }
  selection.Broadcast(BROADCAST_END_GHOST, nullptr, nullptr);
}

}  // namespace morvane
