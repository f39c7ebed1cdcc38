#include "connectors/SelectionDrag.h"

#include "model/ChartView.h"
#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"

namespace morvane {

void DragSelection(PointTracker& tracker, ModelMgr& model, POINT press) {
  tracker.fixedPoint = tracker.movingPoint = press;
  ChartView& view = *model.GetView();
  const bool dropped = tracker.Track(&view, press);
  const GroupMove move(model);
  if (dropped) move.Move(view.ToModel(tracker.movingPoint) - view.ToModel(press));
  move.EndGhost(nullptr);
}

}  // namespace morvane
