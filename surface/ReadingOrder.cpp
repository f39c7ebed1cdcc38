#include "surface/ReadingOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "model/Enclosures.h"
#include "model/ModelMgr.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace morvane {

namespace {

/// The order of a page: what begins above the middle of the first of a row stands in its row.
void SortByPlace(std::vector<Shape*>& shapes) {
  std::ranges::stable_sort(shapes, {}, [](const Shape* s) { return s->GetBounds().top; });
  for (auto row = shapes.begin(); row != shapes.end();) {
    const std::int32_t middle = CentreOf((*row)->GetBounds()).y;
    const auto end = std::find_if(std::next(row), shapes.end(), [middle](const Shape* shape) {
      return shape->GetBounds().top >= middle;
    });
    std::stable_sort(row, end, [](const Shape* a, const Shape* b) {
      return a->GetBounds().left < b->GetBounds().left;
    });
    row = end;
  }
}

std::vector<Shape*> OfLayer(const ModelMgr& model, Layer layer) {
  std::vector<Shape*> found;
  std::ranges::copy_if(model.Objects(), std::back_inserter(found),
                       [layer](const Shape* shape) { return shape->GetLayer() == layer; });
  SortByPlace(found);
  return found;
}

}  // namespace

ReadingOrder::ReadingOrder(const ModelMgr& model) {
  objects.reserve(model.Objects().size());
  AddStates(OfLayer(model, LAYER_STATE));
  for (Shape* transition : OfLayer(model, LAYER_TRANSITION)) AddTransition(transition);
  for (Shape* mesg : OfLayer(model, LAYER_MESG)) Add(mesg);
  AddNotes(OfLayer(model, LAYER_NOTE));
  for (Shape* shape : model.Objects()) Add(shape);
}

Shape* ReadingOrder::HolderOf(const Shape* state) const {
  const auto found = holders.find(state);
  return found != holders.end() ? found->second : nullptr;
}

void ReadingOrder::AddStates(const std::vector<Shape*>& states) {
  std::vector<Enclosures::Box> boxes;
  boxes.reserve(states.size());
  for (const Shape* state : states) {
    boxes.push_back({state->GetBounds(), dynamic_cast<const GenericState*>(state) != nullptr});
  }
  const std::vector<int> holderOf = Enclosures(std::move(boxes)).Holders();
  std::vector<std::vector<std::size_t>> inside(states.size() + 1);
  for (std::size_t i = 0; i < states.size(); ++i) {
    inside[static_cast<std::size_t>(holderOf[i]) + 1].push_back(i);
    if (holderOf[i] >= 0) holders[states[i]] = states[static_cast<std::size_t>(holderOf[i])];
  }
  // Each level begins where the machine begins.
  for (std::vector<std::size_t>& level : inside) {
    std::stable_partition(level.begin(), level.end(), [&states](std::size_t at) {
      return dynamic_cast<const InitialState*>(states[at]) != nullptr;
    });
  }
  // What comes first lies on top, and what lies in it is put there when it goes.
  std::vector<std::size_t> waiting(inside[0].rbegin(), inside[0].rend());
  while (!waiting.empty()) {
    const std::size_t at = waiting.back();
    waiting.pop_back();
    AddState(states[at]);
    waiting.insert(waiting.end(), inside[at + 1].rbegin(), inside[at + 1].rend());
  }
}

void ReadingOrder::AddState(Shape* state) {
  Add(state);
  const auto* source = dynamic_cast<const StartableState*>(state);
  if (source == nullptr) return;
  for (StateTransition* transition : source->GetOutgoing()) AddTransition(transition);
}

void ReadingOrder::AddTransition(Shape* transition) {
  Add(transition);
  const auto* known = dynamic_cast<const Transition*>(transition);
  if (known != nullptr && known->GetMesg() != nullptr) Add(known->GetMesg());
}

void ReadingOrder::AddNotes(const std::vector<Shape*>& notes) {
  for (Shape* shape : notes) {
    const auto* note = dynamic_cast<const Note*>(shape);
    if (note == nullptr) continue;
    Add(shape);
    for (Connector* connector : note->GetConnectors()) {
      if (auto* line = dynamic_cast<Line*>(connector)) Add(line);
    }
  }
  for (Shape* line : notes) Add(line);
}

void ReadingOrder::Add(Shape* object) {
  if (isIn.insert(object).second) objects.push_back(object);
}

}  // namespace morvane
