#include "surface/FreePlace.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <vector>

#include "connectors/Line.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"

namespace morvane {

namespace {

/// The grid of the places that are tried, model units.
constexpr std::int32_t kStep = 2;
/// What is kept free around the new object, the widest first: messages have room then.
constexpr std::int32_t kMargins[] = {20, 14, 9, 5, 2};
/// The name of a state with its separator.
constexpr std::int32_t kNameHeight = 4;

bool Touch(const RECT& a, const RECT& b) {
  return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

/// The first place of the grid from `least` on; the grid runs through `wanted`.
std::int32_t FirstFrom(std::int32_t least, std::int32_t wanted) {
  const std::int32_t behind = (wanted - least) % kStep;
  return least + (behind < 0 ? behind + kStep : behind);
}

/// What stands in an area, but for the states around it.
std::vector<RECT> ObstaclesIn(const ModelMgr& model, const RECT& area, const Shape* holder) {
  std::vector<RECT> obstacles;
  const auto add = [&](const RECT& r) {
    if (Touch(r, area)) obstacles.push_back(r);
  };
  for (const Shape* shape : model.Objects()) {
    if (const auto* transition = dynamic_cast<const Transition*>(shape)) {
      for (const ChainRecord& link : transition->Route()) {
        add(NormalizeRect({link.start.x, link.start.y, link.end.x, link.end.y}));
      }
    } else if (dynamic_cast<const Line*>(shape) == nullptr) {
      const RECT r = shape->GetBounds();
      const bool isAround = holder != nullptr && shape->GetLayer() == LAYER_STATE &&
                            (shape == holder || Contains(r, holder->GetBounds()));
      if (!isAround) add(r);
    }
  }
  return obstacles;
}

/// Those that a row of places from a top to a bottom can meet at all.
std::vector<RECT> ObstaclesBeside(const std::vector<RECT>& obstacles, std::int32_t top,
                                  std::int32_t bottom) {
  std::vector<RECT> beside;
  std::ranges::copy_if(obstacles, std::back_inserter(beside),
                       [=](const RECT& r) { return r.top <= bottom && top <= r.bottom; });
  return beside;
}

}  // namespace

std::optional<POINT> FindFreePlace(const ModelMgr& model, SIZE size, const RECT& area, POINT near,
                                   const Shape* holder) {
  RECT room = area;
  if (holder != nullptr) {
    RECT body = holder->GetBounds();
    body.top += kNameHeight;
    room = IntersectRect(area, body);
  }
  // What is put around one middle lies in one line with it.
  const POINT wanted = near - POINT{size.cx / 2, size.cy / 2};
  const std::vector<RECT> obstacles = ObstaclesIn(model, InflateRect(room, kMargins[0]), holder);
  for (const std::int32_t margin : kMargins) {
    // To the border of the state that holds it less is enough.
    const RECT inner = InflateRect(room, -std::min(margin, 2));
    std::optional<POINT> best;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (std::int32_t y = FirstFrom(inner.top, wanted.y); y <= inner.bottom - size.cy; y += kStep) {
      const std::vector<RECT> beside = ObstaclesBeside(obstacles, y - margin, y + size.cy + margin);
      for (std::int32_t x = FirstFrom(inner.left, wanted.x); x <= inner.right - size.cx;
           x += kStep) {
        const std::int64_t distance =
            std::abs(std::int64_t{x} - wanted.x) + std::abs(std::int64_t{y} - wanted.y);
        if (distance >= least) continue;
        const RECT around = InflateRect({x, y, x + size.cx, y + size.cy}, margin);
        const auto hits = [&around](const RECT& r) { return Touch(r, around); };
        if (std::ranges::any_of(beside, hits)) continue;
        least = distance;
        best = POINT{x, y};
      }
    }
    if (best) return best;
  }
  return std::nullopt;
}

}  // namespace morvane
