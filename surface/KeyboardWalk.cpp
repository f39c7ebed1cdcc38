#include "surface/KeyboardWalk.h"

#include <algorithm>

#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"
#include "surface/ReadingOrder.h"

namespace morvane {

Shape* KeyboardWalk::Current() const {
  const std::vector<Collectable*>& members = view.GetSelection().Members();
  return members.empty() ? nullptr : dynamic_cast<Shape*>(members.back());
}

std::vector<Shape*> KeyboardWalk::StillKept() const {
  std::vector<Shape*> shapes;
  for (const std::int32_t id : kept) {
    Shape* shape = view.GetModel().Find(id);
    if (shape != nullptr && shape->IsInSelection()) shapes.push_back(shape);
  }
  return shapes;
}

void KeyboardWalk::Step(bool forward) {
  const ReadingOrder order(view.GetModel());
  const std::vector<Shape*>& objects = order.Objects();
  if (objects.empty()) return;
  const auto count = std::ssize(objects);
  const auto present = std::ranges::find(objects, Current()) - objects.begin();
  const auto from = present < count ? present : forward ? -1 : count;
  Shape* next = objects[static_cast<std::size_t>((from + (forward ? 1 : -1) + count) % count)];
  std::vector<Shape*> selected = StillKept();
  kept.clear();
  for (const Shape* shape : selected) kept.push_back(shape->GetId());
  // The last one of the selection is where the walk is.
  std::erase(selected, next);
  selected.push_back(next);
  view.GetModel().Select(selected);
  view.ScrollIntoView(*next);
}

void KeyboardWalk::ToggleKept() {
  const Shape* current = Current();
  if (current == nullptr) return;
  if (std::erase(kept, current->GetId()) == 0) kept.push_back(current->GetId());
}

}  // namespace morvane
