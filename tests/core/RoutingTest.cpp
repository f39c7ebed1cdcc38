#include "connectors/NewObjects.h"
#include "connectors/OrthogonalRouter.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

constexpr int kFirst = 101;
constexpr int kSecond = 102;
constexpr RECT kBox{200, 200, 220, 216};

Transition& Last(const LayoutMgr& chart) {
  return dynamic_cast<Transition&>(*chart.GetModel().Objects().back());
}

bool Touches(const Transition& transition, const RECT& r) {
  return std::ranges::any_of(transition.Route(), [&](const ChainRecord& link) {
    return (link.kind == LINK_H || link.kind == LINK_V) && PieceTouches(link.start, link.end, r);
  });
}

/// Calls with each anchor of a state.
void ForEachAnchor(const std::function<void(AnchorKey)>& take) {
  for (std::uint16_t side = SIDE_TOP; side <= SIDE_LEFT; ++side) {
    for (std::uint16_t index = 1; index <= 3; ++index) take({index, side});
  }
}

TEST(Routing, NoNewConnectionRunsThroughItsOwnStates) {
  std::vector<RECT> places{kBox};
  for (const std::int32_t x : {-60, -25, 0, 25, 60}) {
    for (const std::int32_t y : {-50, -20, 20, 50}) places.push_back(kBox + POINT{x, y});
  }
  places.push_back(kBox + POINT{24, 0});
  places.push_back(kBox + POINT{-80, 3});
  std::string through;
  for (const RECT& place : places) {
    const bool loop = place == kBox;
    ForEachAnchor([&](AnchorKey from) {
      ForEachAnchor([&](AnchorKey to) {
        if (loop && from == to) return;
        const auto chart =
            LoadChart(ChartText(StateRecord(kFirst, kBox) + StateRecord(kSecond, place)));
        ConnectAnchors(chart->GetModel(), Find<GenericState>(*chart, kFirst),
                       Find<GenericState>(*chart, loop ? kFirst : kSecond), &from, &to, nullptr);
        const Transition& made = Last(*chart);
        if (Touches(made, kBox) || Touches(made, place)) through += Corners(made.Route()) + "\n";
      });
    });
  }
  EXPECT_EQ(through, "");
}

}  // namespace

}  // namespace morvane
