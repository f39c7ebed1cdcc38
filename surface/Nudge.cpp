#include "surface/Nudge.h"

#include <algorithm>
#include <optional>

#include "model/Collection.h"
#include "model/Contents.h"
#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/MoveSettings.h"
#include "model/RectShape.h"
#include "surface/ChartHistory.h"
#include "surface/LayoutMgr.h"
#include "surface/ViewGeometry.h"

namespace morvane {

namespace {

std::optional<POINT> DirectionOf(VirtualKey key) {
  switch (key) {
    case VirtualKey::Left: return POINT{-1, 0};
    case VirtualKey::Up: return POINT{0, -1};
    case VirtualKey::Right: return POINT{1, 0};
    case VirtualKey::Down: return POINT{0, 1};
    default: return std::nullopt;
  }
}

/// A route or line that hangs on what stays is not torn off it.
std::vector<Shape*> WithoutTied(ModelMgr& model) {
  const GroupMove all(model);
  std::vector<Shape*> shapes = model.SelectedShapes();
  std::erase_if(shapes, [&all](const Shape* shape) {
    return dynamic_cast<const RectShape*>(shape) == nullptr && !shape->GoesWith(all);
  });
  return shapes;
}

/// The far end of a side that is lengthened by so much, or shortened down to a minimum.
std::int32_t FarEnd(std::int32_t start, std::int32_t end, std::int32_t by) {
  const std::int32_t least = std::min(end, AddSat(start, RectShape::kMinimumSize));
  const std::int32_t most = std::max(end, ChartView::kLargestChart);
  return std::clamp(AddSat(end, by), least, most);
}

}  // namespace

bool Nudge::TakesKey(VirtualKey key, unsigned flags) {
  const std::optional<POINT> direction = DirectionOf(key);
  if (!direction || view.GetSelection().IsEmpty()) return false;
  flags &= MK_SHIFT | MK_CONTROL | MK_ALT;
  const std::int32_t step = (flags & MK_SHIFT) != 0 ? ViewGeometry::kGridStep : 1;
  const POINT way{direction->x * step, direction->y * step};
  (flags & MK_CONTROL) != 0 ? Resize(way) : Move(way, flags);
  view.KeepInSight(view.GetModel().SelectionBounds());
  Keep(key, flags);
  return true;
}

void Nudge::Move(POINT way, unsigned flags) {
  ModelMgr& model = view.GetModel();
  std::vector<Shape*> shapes = WithoutTied(model);
  if ((flags & MK_ALT) != 0 || MoveSettings::MovesContents()) {
    const std::vector<Shape*> contents = ContentsOf(model, shapes);
    shapes.insert(shapes.end(), contents.begin(), contents.end());
  }
  GroupMove::Of(model, shapes).Move(way);
}

void Nudge::Resize(POINT way) {
  for (Shape* shape : view.GetModel().SelectedShapes()) {
    auto* box = dynamic_cast<RectShape*>(shape);
    if (box == nullptr) continue;
    const RECT old = box->GetBounds();
    box->ResizeTo({old.left, old.top, FarEnd(old.left, old.right, way.x),
                   FarEnd(old.top, old.bottom, way.y)});
  }
}

void Nudge::Keep(VirtualKey key, unsigned flags) {
  std::vector<std::int32_t> ids;
  for (const Shape* shape : view.GetModel().SelectedShapes()) ids.push_back(shape->GetId());
  ChartHistory& history = view.GetHistory();
  const SharedText before = history.Current();
  const bool again = last.step != nullptr && last.step == before && last.key == key &&
                     last.flags == flags && last.ids == ids;
  if (again) history.GoOnWithStep();
  view.TakeSnapshot();
  // At the edge of the chart nothing has come of it.
  if (again || history.Current() != before) last = {key, flags, ids, history.Current()};
}

}  // namespace morvane
