#include <random>

#include "model/Enclosures.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

using Boxes = std::vector<Enclosures::Box>;

double AreaOf(const RECT& r) { return double(Width(r)) * double(Height(r)); }

/// The area of the smallest box around each one, found by looking at all pairs; 0 for none.
std::vector<double> AreasByPairs(const Boxes& boxes) {
  std::vector<double> areas;
  for (const auto& inner : boxes) {
    double best = 0;
    for (const auto& outer : boxes) {
      const double area = AreaOf(outer.rect);
      if (!outer.canHold || area <= AreaOf(inner.rect)) continue;
      if (UnionRect(outer.rect, inner.rect) != outer.rect) continue;
      if (best == 0 || area < best) best = area;
    }
    areas.push_back(best);
  }
  return areas;
}

std::vector<double> AreasFound(const Boxes& boxes) {
  std::vector<double> areas;
  for (const int holder : Enclosures(boxes).Holders()) {
    areas.push_back(holder >= 0 ? AreaOf(boxes.at(static_cast<std::size_t>(holder)).rect) : 0);
  }
  return areas;
}

TEST(Enclosures, AreTheSmallestAsAllPairsShow) {
  std::mt19937 random(17);
  const auto upTo = [&random](int most) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(most + 1));
  };
  for (const int reach : {6, 40, 3000}) {
    for (int run = 0; run < 40; ++run) {
      Boxes boxes;
      for (int i = 0; i < 60; ++i) {
        const POINT at{upTo(reach) - reach / 3, upTo(reach) - reach / 3};
        boxes.push_back(
            {{at.x, at.y, at.x + 1 + upTo(reach), at.y + 1 + upTo(reach)}, upTo(3) > 0});
      }
      EXPECT_EQ(AreasFound(boxes), AreasByPairs(boxes));
    }
  }
}

}  // namespace

}  // namespace morvane
