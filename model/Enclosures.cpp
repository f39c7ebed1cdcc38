#include "model/Enclosures.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace morvane {

namespace {

double AreaOf(const RECT& r) {
  return static_cast<double>(Width(r)) * static_cast<double>(Height(r));
}

bool Holds(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

/// The power of two that is greater than both sides.
int PowerOf(const RECT& r) {
  const std::int64_t side = std::max({Width(r), Height(r), std::int64_t{1}});
  return std::bit_width(static_cast<std::uint64_t>(side));
}

}  // namespace

Enclosures::Enclosures(std::vector<Box> list) : boxes(std::move(list)) {
  std::vector<int> holders;
  for (int at = 0; at < std::ssize(boxes); ++at) {
    if (boxes[at].canHold) holders.push_back(at);
  }
  std::ranges::stable_sort(holders, {}, [this](int at) { return AreaOf(boxes[at].rect); });
  for (const int at : holders) {
    const RECT& r = boxes[at].rect;
    const int power = PowerOf(r);
    grids[power][{std::int64_t{r.left} >> power, std::int64_t{r.top} >> power}].push_back(at);
  }
}

std::vector<int> Enclosures::Holders() const {
  std::vector<int> holders;
  holders.reserve(boxes.size());
  for (int at = 0; at < std::ssize(boxes); ++at) holders.push_back(HolderOf(at));
  return holders;
}

int Enclosures::HolderOf(int at) const {
  const RECT& r = boxes[at].rect;
  int best = kNone;
  for (auto grid = grids.lower_bound(PowerOf(r)); grid != grids.end(); ++grid) {
    const auto& [power, cells] = *grid;
    const std::int64_t x = std::int64_t{r.left} >> power;
    const std::int64_t y = std::int64_t{r.top} >> power;
    for (const Cell& cell : {Cell{x, y}, Cell{x - 1, y}, Cell{x, y - 1}, Cell{x - 1, y - 1}}) {
      const auto found = cells.find(cell);
      if (found != cells.end()) best = SmallestOf(found->second, at, best);
    }
  }
  return best;
}

int Enclosures::SmallestOf(const std::vector<int>& cell, int at, int best) const {
  const auto area = [this](int other) { return AreaOf(boxes[other].rect); };
  for (auto other = std::ranges::upper_bound(cell, area(at), {}, area); other != cell.end();
       ++other) {
    if (best != kNone && area(*other) >= area(best)) break;
    if (Holds(boxes[*other].rect, boxes[at].rect)) return *other;
  }
  return best;
}

}  // namespace morvane
