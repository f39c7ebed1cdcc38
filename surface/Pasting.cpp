#include "surface/Pasting.h"

#include <algorithm>
#include <array>
#include <set>

#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"
#include "surface/ViewGeometry.h"

namespace morvane {

namespace {

constexpr POINT kStep{ViewGeometry::kGridStep, ViewGeometry::kGridStep};

/// A place with a kind of object there.
using Spot = std::pair<std::string, std::array<std::int32_t, 4>>;

Spot SpotOf(const Shape& shape, POINT way) {
  const RECT box = shape.GetMoveBounds() + way;
  return {shape.GetTypeName(), {box.left, box.top, box.right, box.bottom}};
}

bool Touch(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

}  // namespace

Pasting::MenuPlace::MenuPlace(Pasting& pasting, POINT screen) : pasting(pasting) {
  const LayoutMgr& view = pasting.view;
  const POINT client = view.ScreenToClient(screen);
  if (PtInRect(view.GetClientRect(), client)) pasting.menuPlace = view.ToAbsolute(client);
}

void Pasting::Paste() {
  const std::optional<std::string> text = view.GetModel().CopiedText();
  // Who has copied may take its time, and the chart may be another one by now.
  ModelMgr& model = view.GetModel();
  if (!text) return;
  // Where the last copies are gone, as by undo, their place is free.
  const bool again = *text == last.text && model.Find(last.id) != nullptr;
  if (!model.Paste(*text)) return;
  const POINT way = Place(WayToPlace(again ? last.way + kStep : POINT{}));
  last = {*text, way, model.SelectedShapes().front()->GetId()};
}

void Pasting::Duplicate() {
  ModelMgr& model = view.GetModel();
  if (model.Paste(model.SelectionText())) Place(kStep);
}

/// A way from the place that the records name, if it leads into sight, or another one that does.
POINT Pasting::WayToPlace(POINT way) const {
  const RECT box = view.GetModel().SelectionBounds();
  if (menuPlace) return *menuPlace - TopLeft(box);
  const RECT sight = view.GetGeometry().InSight();
  if (IsRectEmpty(sight) || Touch(box + way, sight)) return way;
  const POINT corner = TopLeft(sight) + POINT{1, 1};
  const POINT centred = CentreOf(sight) - CentreOf(box);
  return {std::max(centred.x, SubSat(corner.x, box.left)),
          std::max(centred.y, SubSat(corner.y, box.top))};
}

/// Not onto objects of the same kinds at the same places, which would hide under the copies.
POINT Pasting::WayToFree(POINT way) const {
  std::set<Spot> taken;
  const std::vector<Shape*>& objects = view.GetModel().Objects();
  for (const Shape* shape : objects) {
    if (!shape->IsInSelection()) taken.insert(SpotOf(*shape, {}));
  }
  const std::vector<Shape*> copies = view.GetModel().SelectedShapes();
  const auto hides = [&taken, &way](const Shape* copy) {
    return taken.contains(SpotOf(*copy, way));
  };
  for (std::size_t tries = 0; tries < objects.size(); ++tries) {
    if (std::ranges::none_of(copies, hides)) break;
    way = way + kStep;
  }
  return way;
}

/// Takes the selected copies to their place; gives the way that they went.
POINT Pasting::Place(POINT way) {
  const GroupMove move(view.GetModel());
  way = move.Limit(WayToFree(move.Limit(way)));
  move.Move(way);
  if (!menuPlace) view.KeepInSight(view.GetModel().SelectionBounds());
  return way;
}

}  // namespace morvane
