#include "surface/Arrangement.h"

#include <algorithm>
#include <map>
#include <utility>

#include "model/ChartView.h"
#include "model/Contents.h"
#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/MoveSettings.h"
#include "model/RectShape.h"
#include "resources/CommandIds.h"

namespace morvane {

namespace {

bool IsDistribution(unsigned id) { return id == ID_DISTRIBUTE_ACROSS || id == ID_DISTRIBUTE_DOWN; }

std::size_t LeastCount(unsigned id) { return IsDistribution(id) ? 3 : 2; }

std::int64_t Area(const Shape& shape) {
  return Width(shape.GetBounds()) * Height(shape.GetBounds());
}

/// The way that puts one box in line with another.
POINT WayTo(unsigned id, const RECT& box, const RECT& reference) {
  switch (id) {
    case ID_ALIGN_LEFT: return {SubSat(reference.left, box.left), 0};
    case ID_ALIGN_CENTRE: return {SubSat(CentreOf(reference).x, CentreOf(box).x), 0};
    case ID_ALIGN_RIGHT: return {SubSat(reference.right, box.right), 0};
    case ID_ALIGN_TOP: return {0, SubSat(reference.top, box.top)};
    case ID_ALIGN_MIDDLE: return {0, SubSat(CentreOf(reference).y, CentreOf(box).y)};
    default: return {0, SubSat(reference.bottom, box.bottom)};
  }
}

}  // namespace

Arrangement::Arrangement(ModelMgr& model) : model(model) {
  std::vector<RectShape*> messages;
  for (Shape* shape : model.SelectedShapes()) {
    auto* box = dynamic_cast<RectShape*>(shape);
    if (box != nullptr) (box->GetLayer() == LAYER_MESG ? messages : boxes).push_back(box);
  }
  if (boxes.empty()) boxes = messages;
}

bool Arrangement::Can(unsigned id) const { return boxes.size() >= LeastCount(id); }

std::vector<RectShape*> Arrangement::PartsFor(unsigned id) const {
  std::vector<RectShape*> outermost;
  for (RectShape* box : boxes) {
    const bool inside =
        std::ranges::any_of(boxes, [box](const RectShape* other) { return LiesIn(*box, *other); });
    if (!inside) outermost.push_back(box);
  }
  return outermost.size() >= LeastCount(id) ? outermost : boxes;
}

void Arrangement::Do(unsigned id) {
  if (!Can(id)) return;
  const std::vector<RectShape*> parts = PartsFor(id);
  switch (id) {
    case ID_DISTRIBUTE_ACROSS:
    case ID_DISTRIBUTE_DOWN: return Distribute(id == ID_DISTRIBUTE_ACROSS, parts);
    case ID_SAME_WIDTH:
    case ID_SAME_HEIGHT:
    case ID_SAME_SIZE: return Resize(id, parts);
    default: Align(id, parts);
  }
}

void Arrangement::Align(unsigned id, const std::vector<RectShape*>& parts) {
  const RECT reference = parts.back()->GetBounds();
  std::vector<POINT> ways;
  for (const RectShape* part : parts) ways.push_back(WayTo(id, part->GetBounds(), reference));
  Move(parts, ways);
}

/// The first and the last one stay.
void Arrangement::Distribute(bool across, std::vector<RectShape*> parts) {
  const auto startOf = [across](const RectShape* part) {
    const RECT box = part->GetBounds();
    return std::int64_t{across ? box.left : box.top};
  };
  const auto sizeOf = [across](const RectShape* part) {
    return across ? Width(part->GetBounds()) : Height(part->GetBounds());
  };
  const auto twiceCentre = [&](const RectShape* part) { return 2 * startOf(part) + sizeOf(part); };
  std::ranges::stable_sort(parts, {}, twiceCentre);
  std::int64_t sizes = 0;
  for (const RectShape* part : parts) sizes += sizeOf(part);
  const RectShape* last = parts.back();
  const std::int64_t first = startOf(parts.front());
  const std::int64_t free = startOf(last) + sizeOf(last) - first - sizes;
  const auto gaps = static_cast<std::int64_t>(parts.size()) - 1;
  std::vector<POINT> ways;
  std::int64_t before = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    // Each place is rounded by itself, so that what is left over spreads.
    const std::int64_t place = first + before + free * static_cast<std::int64_t>(i) / gaps;
    const std::int32_t way = Saturate(place - startOf(parts[i]));
    ways.push_back(across ? POINT{way, 0} : POINT{0, way});
    before += sizeOf(parts[i]);
  }
  Move(parts, ways);
}

void Arrangement::Resize(unsigned id, const std::vector<RectShape*>& parts) {
  const RECT reference = parts.back()->GetBounds();
  const auto reach = [](std::int32_t start, std::int64_t size) {
    return Saturate(std::min<std::int64_t>(start + size, ChartView::kLargestChart));
  };
  for (RectShape* part : parts) {
    RECT box = part->GetBounds();
    if (part == parts.back()) continue;
    if (id != ID_SAME_HEIGHT) box.right = reach(box.left, Width(reference));
    if (id != ID_SAME_WIDTH) box.bottom = reach(box.top, Height(reference));
    part->ResizeTo(box);
  }
}

std::vector<std::vector<Shape*>> Arrangement::Along(const std::vector<RectShape*>& parts) const {
  std::vector<std::vector<Shape*>> along(parts.size());
  const bool all = MoveSettings::MovesContents();
  for (Shape* shape : ContentsOf(model, {parts.begin(), parts.end()})) {
    if (!all && !shape->IsInSelection()) continue;
    std::size_t owner = parts.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (!LiesIn(*shape, *parts[i])) continue;
      if (owner == parts.size() || Area(*parts[i]) < Area(*parts[owner])) owner = i;
    }
    if (owner < parts.size()) along[owner].push_back(shape);
  }
  return along;
}

/// What has the same way goes as one, so that the routes between keep their shape. What hangs on
/// something with another way is pulled by its ends.
void Arrangement::Move(const std::vector<RectShape*>& parts, const std::vector<POINT>& ways) {
  const std::vector<std::vector<Shape*>> along = Along(parts);
  std::map<std::pair<std::int32_t, std::int32_t>, std::vector<Shape*>> groups;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (ways[i] == POINT{}) continue;
    std::vector<Shape*>& group = groups[{ways[i].x, ways[i].y}];
    group.push_back(parts[i]);
    group.insert(group.end(), along[i].begin(), along[i].end());
  }
  for (auto& [way, group] : groups) {
    const GroupMove move = GroupMove::Of(model, group);
    std::erase_if(group, [&move](const Shape* shape) {
      return dynamic_cast<const RectShape*>(shape) == nullptr && !shape->GoesWith(move);
    });
    GroupMove::Of(model, group).Move({way.first, way.second});
  }
}

}  // namespace morvane
