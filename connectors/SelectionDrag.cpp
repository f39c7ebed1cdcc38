#include "connectors/SelectionDrag.h"

#include "model/ChartView.h"
#include "model/PointTracker.h"
#include "model/SelectionMove.h"

namespace morvane {

void DragSelection(PointTracker& tracker, SelectionMove& move, ChartView& view, POINT press) {
  tracker.fixedPoint = tracker.movingPoint = press;
  if (tracker.Track(&view, press)) {
    move.Move(view.ToModel(tracker.movingPoint) - view.ToModel(press));
  }
}

}  // namespace morvane
