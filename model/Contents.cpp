#include "model/Contents.h"

#include <algorithm>
#include <unordered_set>

#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/RectShape.h"

namespace morvane {

namespace {

bool IsBox(const Shape& shape) { return dynamic_cast<const RectShape*>(&shape) != nullptr; }

/// The place of a shape without the room for its marks and for clicks.
RECT PlaceOf(const Shape& shape) {
  return IsBox(shape) ? shape.GetBounds() : shape.GetMoveBounds();
}

bool Holds(const RECT& frame, const RECT& box) {
  return frame != box && frame.left <= box.left && frame.top <= box.top &&
         frame.right >= box.right && frame.bottom >= box.bottom;
}

/// Boxes first: what a route or a line hangs on then tells whether it goes along.
std::vector<Shape*> Inside(ModelMgr& model, const std::vector<const Shape*>& frames,
                           const std::vector<Shape*>& movers) {
  std::vector<RECT> places;
  for (const Shape* frame : frames) {
    if (frame->HoldsContents()) places.push_back(frame->GetBounds());
  }
  if (places.empty()) return {};
  const std::unordered_set<const Shape*> known(movers.begin(), movers.end());
  std::vector<Shape*> along = movers;
  std::vector<Shape*> found;
  const auto take = [&](bool boxes) {
    const GroupMove move = GroupMove::Of(model, along);
    for (Shape* shape : model.Objects()) {
      if (IsBox(*shape) != boxes || known.contains(shape)) continue;
      const RECT place = PlaceOf(*shape);
      const auto holds = [&place](const RECT& frame) { return Holds(frame, place); };
      if (std::ranges::any_of(places, holds) && shape->GoesWith(move)) found.push_back(shape);
    }
    along.insert(along.end(), found.begin(), found.end());
  };
  take(true);
  take(false);
  return found;
}

}  // namespace

bool LiesIn(const Shape& inner, const Shape& outer) {
  return outer.HoldsContents() && Holds(outer.GetBounds(), PlaceOf(inner));
}

std::vector<Shape*> ContentsOf(ModelMgr& model, const Shape& frame) {
  return GroupMove::Of(model, Inside(model, {&frame}, {})).Shapes();
}

std::vector<Shape*> ContentsOf(ModelMgr& model, const std::vector<Shape*>& movers) {
  return Inside(model, {movers.begin(), movers.end()}, movers);
}

}  // namespace morvane
