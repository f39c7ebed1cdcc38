#include "surface/MessagePlaces.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "model/ChartView.h"
#include "model/ModelMgr.h"
#include "states/GenericState.h"
#include "surface/StateSize.h"

namespace morvane {

namespace {

/// What a place costs, in model units of its distance from the middle of the route.
constexpr std::int64_t kOnState = 400;
constexpr std::int64_t kOnMessage = 300;
constexpr std::int64_t kOnLink = 60;
/// On the chart's edge, or beyond.
constexpr std::int64_t kOffChart = 10'000;
/// The name of a composite with its separator, model units.
constexpr std::int32_t kNameBand = 4;
/// What of a message is no room for text, logical units.
constexpr std::int32_t kTextMargins = 6;
/// A flat link shows best what stands above it.
constexpr std::int64_t kBelow = 3;

RECT BoxOf(const ChainRecord& link) {
  return NormalizeRect({link.start.x, link.start.y, link.end.x, link.end.y});
}

bool Meet(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Holds(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

/// A rectangle of a size around a point.
RECT Around(POINT middle, SIZE size) {
  const RECT at{0, 0, size.cx, size.cy};
  return at + (middle - CentreOf(at));
}

/// The places beside a link, in its middle and towards both ends.
std::vector<RECT> PlacesBeside(const ChainRecord& link, SIZE size) {
  std::vector<RECT> places;
  const bool level = link.start.y == link.end.y;
  for (const int eighths : {4, 3, 5, 2, 6, 1, 7}) {
    constexpr int whole = 8;
    const POINT at{link.start.x + (link.end.x - link.start.x) * eighths / whole,
                   link.start.y + (link.end.y - link.start.y) * eighths / whole};
    if (level) {
      const std::int32_t left = at.x - size.cx / 2;
      places.push_back({left, at.y - size.cy, left + size.cx, at.y});
      places.push_back({left, at.y + 1, left + size.cx, at.y + 1 + size.cy});
    } else {
      const std::int32_t top = at.y - size.cy / 2;
      places.push_back({at.x + 1, top, at.x + 1 + size.cx, top + size.cy});
      places.push_back({at.x - size.cx, top, at.x, top + size.cy});
    }
  }
  return places;
}

}  // namespace

MessagePlaces::MessagePlaces(const ModelMgr& model, const std::unordered_set<const Shape*>& moved,
                             const std::unordered_set<const Shape*>& composites)
    : model(model) {
  for (const Shape* shape : model.Objects()) {
    if (!moved.contains(shape)) LookAt(*shape, composites.contains(shape));
  }
}

void MessagePlaces::LookAt(const Shape& shape, bool holdsOthers) {
  const RECT bounds = shape.GetBounds();
  if (const auto* transition = dynamic_cast<const Transition*>(&shape)) {
    for (const ChainRecord& link : transition->Route()) links.push_back(BoxOf(link));
  } else if (dynamic_cast<const Mesg*>(&shape) != nullptr) {
    messages.push_back(bounds);
  } else if (const auto* state = dynamic_cast<const GenericState*>(&shape);
             state != nullptr && holdsOthers) {
    outer.push_back(bounds);
    const StateSize texts = StateSize::Of(*state, *model.GetView());
    full.push_back({bounds.left, bounds.top, bounds.right, bounds.top + kNameBand});
    full.push_back({bounds.left, bounds.top, std::min(bounds.left + texts.size.cx, bounds.right),
                    bounds.top + texts.head});
  } else if (shape.GetLayer() == LAYER_STATE || dynamic_cast<const Note*>(&shape) != nullptr) {
    full.push_back(bounds);
  }
}

/// What of a message shows: its text stands in its upper left corner.
SIZE MessagePlaces::ShownSize(const Mesg& message) const {
  const RECT box = message.GetBounds();
  const ChartView& view = *model.GetView();
  const std::int32_t room = view.ToLogical(Saturate(Width(box))) - kTextMargins;
  const SIZE text = view.MeasureChartText(message.GetText().ShownText(), room);
  const auto units = [](std::int32_t logical) {
    return AddSat(logical, kTextMargins + ChartView::kLogicalPerModel - 1) /
           ChartView::kLogicalPerModel;
  };
  return {std::min(units(text.cx), Saturate(Width(box))),
          std::min(units(text.cy), Saturate(Height(box)))};
}

std::int64_t MessagePlaces::CostOf(const RECT& place) const {
  std::int64_t cost = place.left < 1 || place.top < 1 ? kOffChart : 0;
  const auto meets = [&place](const RECT& r) { return Meet(place, r); };
  cost += kOnMessage * std::ranges::count_if(messages, meets);
  cost += kOnLink * std::ranges::count_if(links, [&place](const RECT& link) {
            // A link has no width of its own.
            return Meet(place, {link.left, link.top, link.right + 1, link.bottom + 1});
          });
  cost += kOnState * std::ranges::count_if(full, meets);
  cost += kOnState * std::ranges::count_if(outer, [&place](const RECT& state) {
            return Meet(place, state) && !Holds(state, place);
          });
  return cost;
}

void MessagePlaces::Put(Transition& transition) {
  Mesg* message = transition.GetMesg();
  if (message == nullptr) return;
  const RECT box = message->GetBounds();
  const SIZE size = ShownSize(*message);
  const POINT label = transition.LabelPoint();
  RECT best = Around(label, size);
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (const ChainRecord& link : transition.Route()) {
    std::int64_t side = 0;
    for (const RECT& place : PlacesBeside(link, size)) {
      const POINT way = CentreOf(place) - label;
      const std::int64_t cost =
          CostOf(place) + std::abs(way.x) + std::abs(way.y) + kBelow * (side++ % 2);
      if (cost >= least) continue;
      least = cost;
      best = place;
    }
  }
  message->MoveTo(box + (TopLeft(best) - TopLeft(box)));
  messages.push_back(best);
}

}  // namespace morvane
