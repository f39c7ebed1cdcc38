#include "surface/ChartArranger.h"

#include <cstdlib>
#include <unordered_set>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "layout/NestedLayout.h"
#include "model/ChartView.h"
#include "model/Enclosures.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "states/StartableState.h"
#include "surface/MessagePlaces.h"
#include "surface/StateSize.h"

namespace morvane {

namespace {

using IndexOfShape = std::unordered_map<const Shape*, int>;

/// With more objects a message stands on its route, whatever else is there.
constexpr std::size_t kMostObjects = 3000;

IndexOfShape IndexOf(const std::vector<ChartArranger::Part>& parts) {
  IndexOfShape index;
  for (int i = 0; i < std::ssize(parts); ++i) index[parts[i].shape] = i;
  return index;
}

LayoutBox BoxOf(const ChartArranger::Part& part, bool holdsOthers, const ChartView& view) {
  LayoutBox box;
  box.holder = part.holder;
  const RECT bounds = part.shape->GetBounds();
  box.size = {Saturate(Width(bounds)), Saturate(Height(bounds))};
  if (dynamic_cast<const InitialState*>(part.shape) != nullptr) {
    box.kind = LayoutBox::Kind::Start;
  } else if (dynamic_cast<const FinalState*>(part.shape) != nullptr) {
    box.kind = LayoutBox::Kind::End;
  } else if (const auto* state = dynamic_cast<const GenericState*>(part.shape)) {
    const StateSize wanted = StateSize::Of(*state, view);
    box.size = wanted.size;
    if (holdsOthers) box.head = wanted.head;
  }
  return box;
}

const Shape* FromOf(const WantedRoute& route) { return static_cast<const State*>(route.from); }
const Shape* ToOf(const WantedRoute& route) { return static_cast<const State*>(route.to); }

SIZE LabelOf(const Transition& transition) {
  const Mesg* message = transition.GetMesg();
  if (message == nullptr) return {};
  const RECT bounds = message->GetBounds();
  return {Saturate(Width(bounds)), Saturate(Height(bounds))};
}

bool Meet(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return outer.left < inner.left && outer.top < inner.top && outer.right > inner.right &&
         outer.bottom > inner.bottom;
}

/// A little step in the route of an initial mark goes away if the mark stands in line with the
/// other end.
void PutInLine(const WantedRoute& route, const ChartNest& nest) {
  constexpr std::int32_t most = 8;
  auto* mark = dynamic_cast<InitialState*>(route.from);
  if (mark == nullptr || mark->GetOutgoing().size() != 1) return;
  const RouteEnd start = route.transition->SourceEnd();
  const RouteEnd end = route.transition->TargetEnd();
  const bool across = start.side == SIDE_LEFT || start.side == SIDE_RIGHT;
  const bool faces = across ? end.side == SIDE_LEFT || end.side == SIDE_RIGHT
                            : end.side == SIDE_TOP || end.side == SIDE_BOTTOM;
  if (!faces || start.side == end.side) return;
  POINT way = end.anchor - start.anchor;
  (across ? way.x : way.y) = 0;
  if (way == POINT{} || std::abs(way.x) > most || std::abs(way.y) > most) return;
  const RECT place = mark->GetBounds() + way;
  const Shape* holder = nest.holders.at(mark);
  const RECT room = InflateRect(place, 1);
  for (const Shape* other : nest.contents.at(holder)) {
    if (other != mark && Meet(room, other->GetBounds())) return;
  }
  if (holder == nullptr || Contains(holder->GetBounds(), room)) mark->MoveTo(place);
}

/// What stands in what by the places of now, for routes.
ChartNest NestOf(const ModelMgr& model) {
  ChartNest nest;
  const std::vector<ChartArranger::Part> parts = PartsOf(model);
  for (const ChartArranger::Part& part : parts) {
    const Shape* holder = part.holder == LayoutBox::kOutermost ? nullptr : parts[part.holder].shape;
    nest.holders[part.shape] = holder;
    nest.contents[holder].push_back(part.shape);
  }
  return nest;
}

}  // namespace

std::vector<ChartArranger::Part> PartsOf(const ModelMgr& model) {
  std::vector<ChartArranger::Part> parts;
  std::vector<Enclosures::Box> boxes;
  for (Shape* shape : model.Objects()) {
    const bool isState = shape->GetLayer() == LAYER_STATE;
    if (!isState && dynamic_cast<const Note*>(shape) == nullptr) continue;
    parts.push_back({dynamic_cast<RectShape*>(shape)});
    boxes.push_back({shape->GetBounds(), dynamic_cast<const GenericState*>(shape) != nullptr});
  }
  const std::vector<int> holders = Enclosures(std::move(boxes)).Holders();
  for (std::size_t i = 0; i < parts.size(); ++i) parts[i].holder = holders[i];
  return parts;
}

void ChartArranger::Arrange(const std::vector<Part>& parts, POINT corner,
                            const std::vector<WantedRoute>& loose) {
  std::vector<WantedRoute> routes = TakeRoutes(parts);
  routes.insert(routes.end(), loose.begin(), loose.end());
  const std::vector<RECT> rects = NestedLayout::Rects(GraphOf(parts, routes));
  for (std::size_t i = 0; i < parts.size(); ++i) parts[i].shape->ResizeTo(rects[i] + corner);
  const ChartNest nest = NestOf(model);
  RouteLayer(model, nest).Lay(routes);
  for (const WantedRoute& route : routes) PutInLine(route, nest);
  PutMessages(routes, nest);
}

/// Lets go of the transitions with an end at a part, so that they are not pulled along.
std::vector<WantedRoute> ChartArranger::TakeRoutes(const std::vector<Part>& parts) const {
  const IndexOfShape index = IndexOf(parts);
  std::vector<WantedRoute> routes;
  for (Shape* shape : model.Objects()) {
    auto* transition = dynamic_cast<Transition*>(shape);
    if (transition == nullptr) continue;
    const WantedRoute route{transition, transition->GetSource(), transition->GetTarget()};
    if (route.from == nullptr || route.to == nullptr) continue;
    if (index.contains(FromOf(route)) || index.contains(ToOf(route))) routes.push_back(route);
  }
  for (const WantedRoute& route : routes) {
    route.from->RemoveTransition(route.transition);
    route.to->RemoveTransition(route.transition);
  }
  return routes;
}

LayoutGraph ChartArranger::GraphOf(const std::vector<Part>& parts,
                                   const std::vector<WantedRoute>& routes) const {
  LayoutGraph graph;
  std::vector<bool> holdsOthers(parts.size(), false);
  for (const Part& part : parts) {
    if (part.holder != LayoutBox::kOutermost) holdsOthers[part.holder] = true;
  }
  for (std::size_t i = 0; i < parts.size(); ++i) {
    graph.boxes.push_back(BoxOf(parts[i], holdsOthers[i], *model.GetView()));
  }
  const IndexOfShape index = IndexOf(parts);
  for (const WantedRoute& route : routes) {
    const auto from = index.find(FromOf(route));
    const auto to = index.find(ToOf(route));
    if (from == index.end() || to == index.end()) continue;
    graph.edges.push_back({from->second, to->second, LabelOf(*route.transition)});
  }
  AddLines(parts, graph);
  return graph;
}

/// A note comes to stand near what it explains.
void ChartArranger::AddLines(const std::vector<Part>& parts, LayoutGraph& graph) const {
  const IndexOfShape index = IndexOf(parts);
  for (const Shape* shape : model.Objects()) {
    const auto* line = dynamic_cast<const Line*>(shape);
    if (line == nullptr) continue;
    const auto from = index.find(dynamic_cast<const Shape*>(line->GetStartShape()));
    const auto to = index.find(dynamic_cast<const Shape*>(line->GetEndShape()));
    if (from == index.end() || to == index.end() || from == to) continue;
    graph.edges.push_back({from->second, to->second, {}});
  }
}

void ChartArranger::PutMessages(const std::vector<WantedRoute>& routes,
                                const ChartNest& nest) const {
  if (model.Objects().size() > kMostObjects) {
    for (const WantedRoute& route : routes) {
      if (Mesg* message = route.transition->GetMesg()) message->Align();
    }
    return;
  }
  std::unordered_set<const Shape*> moved;
  for (const WantedRoute& route : routes) {
    if (const Mesg* message = route.transition->GetMesg()) moved.insert(message);
  }
  std::unordered_set<const Shape*> composites;
  for (const auto& [holder, contents] : nest.contents) composites.insert(holder);
  MessagePlaces places(model, moved, composites);
  for (const WantedRoute& route : routes) places.Put(*route.transition);
}

}  // namespace morvane
