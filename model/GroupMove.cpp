#include "model/GroupMove.h"

#include <algorithm>

#include "model/ChartView.h"
#include "model/Collectable.h"
#include "model/ModelMgr.h"
#include "model/Shape.h"

namespace morvane {

namespace {

/// So much of the way along one axis that a box from `low` to `high` stays on the chart.
std::int32_t LimitAxis(std::int32_t way, std::int32_t low, std::int32_t high) {
  const std::int32_t least = std::min(SubSat(0, low), 0);
  const std::int32_t most = std::max(SubSat(ChartView::kLargestChart, high), 0);
  return std::clamp(way, least, most);
}

}  // namespace

GroupMove::GroupMove(ModelMgr& model, const std::vector<Shape*>& more)
    : GroupMove(model.SelectedShapes(), more, model) {}

GroupMove::GroupMove(const std::vector<Shape*>& first, const std::vector<Shape*>& more,
                     ModelMgr& model)
    : model(model) {
  for (Shape* shape : first) members.Add(shape);
  for (Shape* shape : more) members.Add(shape);
  // What comes along has companions of its own.
  for (std::size_t i = 0; i < members.Members().size(); ++i) {
    dynamic_cast<Shape&>(*members.Members()[i]).AddCompanions(*this);
  }
}

GroupMove GroupMove::Of(ModelMgr& model, const std::vector<Shape*>& shapes) {
  return {shapes, {}, model};
}

std::vector<Shape*> GroupMove::Shapes() const {
  std::vector<Shape*> shapes;
  for (Collectable* member : members.Members()) shapes.push_back(dynamic_cast<Shape*>(member));
  return shapes;
}

void GroupMove::Add(Shape* shape) { members.Add(shape); }

bool GroupMove::Contains(const Shape* shape) const { return members.Contains(shape); }

POINT GroupMove::Limit(POINT offset) const {
  for (const Collectable* member : members.Members()) {
    const RECT box = dynamic_cast<const Shape&>(*member).GetMoveBounds();
    offset = {LimitAxis(offset.x, box.left, box.right), LimitAxis(offset.y, box.top, box.bottom)};
  }
  return offset;
}

void GroupMove::ShowGhost(POINT offset, const Shape* except) const {
  POINT shown = model.GetView()->SubScroll(offset);
  members.Broadcast(BROADCAST_SHOW_GHOST, &shown, except);
}

void GroupMove::EndGhost(const Shape* except) const {
  members.Broadcast(BROADCAST_END_GHOST, nullptr, except);
}

void GroupMove::Move(POINT offset) const {
  offset = Limit(offset);
  if (offset == POINT{}) return;
  model.SetRunningMove(this);
  members.Broadcast(BROADCAST_MOVE, &offset, nullptr);
  model.SetRunningMove(nullptr);
}

}  // namespace morvane
