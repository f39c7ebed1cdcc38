#include "model/SelectionMove.h"

#include "model/ChartView.h"
#include "model/Contents.h"
#include "model/ModelMgr.h"
#include "model/MoveSettings.h"

namespace morvane {

SelectionMove::SelectionMove(ModelMgr& model, unsigned flags, const Shape* dragged)
    : model(model),
      dragged(dragged),
      always((flags & MK_ALT) != 0 || MoveSettings::MovesContents()),
      alone(model) {}

SelectionMove::~SelectionMove() {
  if (shown != nullptr) shown->EndGhost(dragged);
}

/// Alt may come and go during the drag.
const GroupMove& SelectionMove::Moving() {
  if (!always && !model.GetView()->IsAltDown()) return alone;
  if (!withContents) withContents.emplace(model, ContentsOf(model, model.SelectedShapes()));
  return *withContents;
}

POINT SelectionMove::Show(POINT offset) {
  const GroupMove& move = Moving();
  if (shown != nullptr && shown != &move) shown->EndGhost(dragged);
  shown = &move;
  offset = move.Limit(offset);
  move.ShowGhost(offset, dragged);
  return offset;
}

void SelectionMove::Move(POINT offset) { Moving().Move(offset); }

}  // namespace morvane
