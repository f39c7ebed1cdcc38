#include "review/MovedGroups.h"

#include <algorithm>
#include <utility>

namespace morvane {

namespace {

bool LiesIn(const RECT& inner, const RECT& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

double AreaOf(const RECT& r) {
  return static_cast<double>(Width(r)) * static_cast<double>(Height(r));
}

}  // namespace

MovedGroups::MovedGroups(std::vector<Pair> pairs, std::vector<ObjectChange>& changes)
    : pairs(std::move(pairs)), changes(changes) {
  std::ranges::sort(this->pairs, {},
                    [](const Pair& pair) { return std::pair(pair.box.left, pair.change); });
}

std::optional<POINT> MovedGroups::ShiftOf(const Pair& pair) const {
  return pair.change != Pair::kUnchanged ? changes[pair.change].shift : std::nullopt;
}

std::optional<POINT> MovedGroups::FindWhole() const {
  if (pairs.size() < 2) return std::nullopt;
  const std::optional<POINT> shift = ShiftOf(pairs.front());
  const bool all =
      std::ranges::all_of(pairs, [&](const Pair& pair) { return shift && ShiftOf(pair) == shift; });
  return all ? shift : std::nullopt;
}

std::optional<POINT> MovedGroups::Find() {
  const std::optional<POINT> whole = FindWhole();
  if (whole) {
    for (const Pair& pair : pairs) changes[pair.change].movesAlong = true;
    return whole;
  }
  std::vector<std::pair<double, std::size_t>> holders;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const ObjectChange& change = changes[i];
    if (!change.shift || !change.before->holdsContents) continue;
    holders.emplace_back(-AreaOf(change.before->Box()), i);
  }
  // The largest first: what moves along needs to tell of nothing itself.
  std::ranges::sort(holders);
  for (const auto& [area, place] : holders) {
    if (!changes[place].movesAlong) GatherHeld(changes[place]);
  }
  return std::nullopt;
}

void MovedGroups::GatherHeld(ObjectChange& holder) {
  const RECT around = holder.before->Box();
  auto next = std::ranges::lower_bound(pairs, around.left, {},
                                       [](const Pair& pair) { return pair.box.left; });
  for (; next != pairs.end() && next->box.left <= around.right; ++next) {
    if (!LiesIn(next->box, around)) continue;
    ObjectChange* change = next->change == Pair::kUnchanged ? nullptr : &changes[next->change];
    if (change == &holder) continue;
    ++holder.held;
    if (change == nullptr || change->shift != holder.shift) continue;
    ++holder.heldAlong;
    change->movesAlong = true;
  }
}

}  // namespace morvane
