#include "connectors/NewObjects.h"
#include "connectors/OrthogonalRouter.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

constexpr int kFirst = 101;
constexpr int kSecond = 102;
constexpr int kRoute = 103;
constexpr int kMesg = 104;
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

/// Drags what lies at a model point by an offset in model units, at a zoom.
void Drag(LayoutMgr& chart, POINT from, POINT by, unsigned flags = MK_LBUTTON) {
  FakeWindow window(chart);
  const POINT drop = chart.ToClient(from + by);
  window.Move(drop);
  window.Release(drop);
  chart.OnLButtonDown(flags, chart.ToClient(from));
}

/// Where everything stands: the route, and the boxes of states and message.
std::string Places(const LayoutMgr& chart) {
  std::string text = Corners(Find<Transition>(chart, kRoute)->Route());
  for (const int id : {kFirst, kSecond, kMesg}) {
    if (const Shape* shape = FindShape(chart, id))
      text += " " + Text({TopLeft(shape->GetBounds())});
  }
  return text;
}

/// A loop or a route between two states, with a message beside it, dragged by the first state.
TEST(Routing, WhatMovesWithBothItsEndsKeepsItsShape) {
  const std::string loop = StateRecord(kFirst, {20, 30, 40, 46}) +
                           TransitionRecord(kRoute, kFirst, kFirst, "2 2 1 2",
                                            LinkLines("40,38 41,38 50,38 50,9 30,9 30,29 30,30"));
  const std::string pair =
      StateRecord(kFirst, {20, 30, 40, 46}) + StateRecord(kSecond, {60, 30, 80, 46}) +
      TransitionRecord(kRoute, kFirst, kSecond, "2 2 4 2",
                       LinkLines("40,38 41,38 50,38 50,9 55,9 55,38 59,38 60,38"));
  const std::string mesg = MesgRecord(kMesg, kRoute, {4, 20, 14, 26});
  struct Case {
    const char* what;
    std::string records;
    bool all;
    POINT by;
    std::string places;
  } const cases[] = {
      {"a loop", loop, false, {5, 7}, "45,45 46,45 55,45 55,16 35,16 35,36 35,37 25,37"},
      {"up to the edge, where its route arrives first",
       loop,
       false,
       {0, -20},
       "40,29 41,29 50,29 50,0 30,0 30,20 30,21 20,21"},
      {"its message, which is first at the left",
       loop + mesg,
       false,
       {-9, 1},
       "37,39 38,39 47,39 47,10 27,10 27,30 27,31 17,31 1,21"},
      {"two states",
       pair,
       true,
       {-25, -40},
       "21,29 22,29 31,29 31,0 36,0 36,29 40,29 41,29 1,21 41,21"},
      {"one of two",
       pair,
       false,
       {0, 2},
       "40,40 41,40 50,40 50,9 55,9 55,38 59,38 60,38 20,32 60,30"},
  };
  for (const Case& c : cases) {
    const auto chart = LoadChart(ChartText(c.records));
    if (c.all) {
      for (const int id : {kFirst, kSecond}) chart->GetSelection().Add(FindShape(*chart, id));
    }
    Drag(*chart, {23, 43}, c.by);
    EXPECT_EQ(Places(*chart), c.places) << c.what;
  }
}

TEST(Routing, NothingGoesWhereItCannotBeSeen) {
  const auto chart = LoadChart(ChartText(
      StateRecord(kFirst, {20, 30, 40, 46}) + LineRecord(kSecond, 0, 0, "1 1 1 1") +  // 40,40 60,60
      TransitionRecord(kRoute, 0, 0, "3 1 1 1", LinkLines("70,10 70,11 80,11 80,20 80,21"))));
  const auto* line = Find<Line>(*chart, kSecond);
  Drag(*chart, {50, 50}, {-200, -200});
  EXPECT_EQ(Text({line->GetStart(), line->GetEnd()}), "0,0 20,20");
  Drag(*chart, {75, 11}, {0, -100});
  EXPECT_EQ(Places(*chart).substr(0, 35), "70,10 70,11 70,0 80,0 80,20 80,21 2");
  Drag(*chart, {70, 10}, {-100, -100});
  EXPECT_EQ(Find<Transition>(*chart, kRoute)->Route().front().start, (POINT{0, 0}));
  const int before = chart->GetTotalSize().cx;
  Drag(*chart, {23, 43}, {1500, 0});
  EXPECT_GE(chart->GetTotalSize().cx, chart->ToDevice(1540));
  EXPECT_LT(before, chart->ToDevice(1540));
}

TEST(Routing, AMessageStaysOnItsLabelAtEachZoom) {
  for (int zoom = LayoutMgr::kMinZoom; zoom <= LayoutMgr::kMaxZoom; ++zoom) {
    const auto chart = LoadChart(ChartText(
        StateRecord(kFirst, {301, 301, 321, 317}) + StateRecord(kSecond, {301, 327, 321, 343}) +
            TransitionRecord(kRoute, kFirst, kSecond, "3 2 1 2",
                             LinkLines("311,317 311,318 311,326 311,327")) +
            MesgRecord(kMesg, kRoute, {306, 319, 317, 325}),
        "9999 4 1", std::to_string(zoom)));
    const FakeWindow window(*chart);
    chart->ApplyZoom();
    chart->SetScrollPos(ScrollBar::Vertical, zoom * 350);
    auto* mesg = Find<Mesg>(*chart, kMesg);
    ASSERT_TRUE(mesg->IsAligned());
    for (const POINT by : Points("0,-7 1,0 0,9 -3,1 0,1")) {
      auto* state = Find<GenericState>(*chart, kSecond);
      state->MoveTo(state->GetBounds() + by);
      EXPECT_EQ(mesg->GetCentre(), Find<Transition>(*chart, kRoute)->LabelPoint()) << zoom;
    }
  }
}

TEST(Routing, RerouteIsOneStepAndGoesRoundTheStates) {
  const auto chart = LoadChart(ChartText(
      StateRecord(kFirst, {20, 30, 40, 46}) + StateRecord(kSecond, {120, 30, 140, 46}) +
      StateRecord(7, {70, 20, 90, 56}) + MesgRecord(kMesg, kRoute, {75, 35, 85, 41}) +
      TransitionRecord(kRoute, kFirst, kSecond, "2 2 4 2", LinkLines("40,38 41,38 119,38 120,38")) +
      TransitionRecord(8, kFirst, kFirst, "2 2 1 2",
                       LinkLines("40,38 41,38 41,20 10,20 10,40 30,40 30,29 30,30"))));
  const FakeWindow window(*chart);
  chart->TakeSnapshot();
  const std::string before = chart->ModelText();
  EXPECT_FALSE(chart->OnUpdateCommand(ID_REROUTE).enabled);
  chart->GetModel().SelectOnly(FindShape(*chart, kRoute));
  chart->OnCommand(ID_REROUTE);
  EXPECT_EQ(Corners(Find<Transition>(*chart, kRoute)->Route()),
            "40,38 41,38 67,38 67,17 117,17 117,38 119,38 120,38");
  EXPECT_TRUE(Find<Mesg>(*chart, kMesg)->IsAligned());
  EXPECT_TRUE(Touches(*Find<Transition>(*chart, 8), {20, 30, 40, 46}));
  chart->OnCommand(ID_REROUTE_ALL);
  EXPECT_EQ(Corners(Find<Transition>(*chart, 8)->Route()),
            "40,38 41,38 43,38 43,27 30,27 30,29 30,30");
  const std::string after = chart->ModelText();
  chart->OnCommand(ID_REROUTE_ALL);
  EXPECT_EQ(chart->ModelText(), after) << "a route that is laid anew again stays";
  chart->OnCommand(ID_EDIT_UNDO);
  chart->OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(chart->ModelText(), before);
}

}  // namespace

}  // namespace morvane
