#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

std::unique_ptr<LayoutMgr> Shown(const std::string& text) {
  auto chart = LoadChart(text);
  chart->ApplyZoom();
  chart->TakeSnapshot();
  return chart;
}

TEST(View, ZoomStopsAtItsLimitsAndSnapsThePosition) {
  const auto chart = Shown(SmallChart());
  for (const auto& [device, model] : Points("3,1 2,0 -3,-1 -2,0 9,2 8,1")) {
    EXPECT_EQ(chart->ToModel(device), model) << device;
  }
  chart->SetScrollPos(ScrollBar::Horizontal, 102);
  ASSERT_TRUE(chart->OnCommand(ID_ZOOM_IN));
  EXPECT_EQ(chart->GetZoom(), 7);
  EXPECT_EQ(chart->GetScrollPos(ScrollBar::Horizontal), 105);
  EXPECT_EQ(chart->GetTotalSize(), (SIZE{10500, 10500}));
  while (chart->OnUpdateCommand(ID_ZOOM_IN).enabled) chart->OnCommand(ID_ZOOM_IN);
  EXPECT_EQ(chart->GetZoom(), 13);
  EXPECT_FALSE(chart->OnCommand(ID_ZOOM_IN));
  while (chart->OnUpdateCommand(ID_ZOOM_OUT).enabled) chart->OnCommand(ID_ZOOM_OUT);
  EXPECT_EQ(chart->GetZoom(), 2);
  EXPECT_TRUE(chart->OnCommand(ID_ZOOM_NORMAL));
  EXPECT_FALSE(chart->OnUpdateCommand(ID_ZOOM_NORMAL).enabled);
}

TEST(View, ScrollsInStepsOfTheZoom) {
  const auto chart = LoadChart(SmallChart());
  const FakeWindow window(*chart);
  chart->ApplyZoom();
  // How far, and where that leads.
  for (const auto& [distance, x] : Points("5,0 11,6 -5,6 -11,0 100,96 -1000,0 2000000000,7800")) {
    chart->OnScrollBy({distance, 0});
    EXPECT_EQ(chart->GetScrollPosition(), (POINT{x, 0})) << distance;
  }
  chart->OnScrollBy({-9000, 0});
  const std::pair<VirtualKey, POINT> keys[] = {
      {VirtualKey::Right, {6, 0}}, {VirtualKey::Down, {6, 6}}, {VirtualKey::Next, {6, 42}},
      {VirtualKey::Left, {0, 42}}, {VirtualKey::Up, {0, 36}},  {VirtualKey::Prior, {0, 0}},
      {VirtualKey::Next, {0, 36}}, {VirtualKey::Home, {0, 0}}};
  for (const auto& [key, position] : keys) {
    EXPECT_TRUE(chart->OnKeyDown(key, 0));
    EXPECT_EQ(chart->GetScrollPosition(), position) << static_cast<int>(key);
  }
  EXPECT_FALSE(chart->OnKeyDown(VirtualKey::End, 0));
}

TEST(View, HitsAndPaintsByLayerAndThenByPlaceInTheList) {
  const RECT box{10, 10, 30, 30};
  const auto chart = Shown(ChartText(NoteRecord(4, box, Block("note")) + MesgRecord(3, 0, box) +
                                     StateRecord(1, box, "first") + StateRecord(2, box, "second")));
  CNullDC reference;
  CMetaFileDC dc(reference);
  ChartPicture(*chart).Paint(dc);
  EXPECT_EQ(PaintedTexts(dc.Close()),
            (std::vector<std::string>{"first", "[Entry]", "[Exit]", "second", "[Entry]", "[Exit]",
                                      "onEvent(e)", "note"}));
  const ModelMgr& model = chart->GetModel();
  EXPECT_EQ(model.ObjectAt({120, 120})->GetId(), 4);
  EXPECT_EQ(model.ObjectNear({120, 120}, LAYER_STATE)->GetId(), 2);
  delete FindShape(*chart, 4);
  EXPECT_EQ(model.ObjectAt({120, 120})->GetId(), 3);
  // Two units beyond the edge are near; the right and bottom edges are outside.
  EXPECT_NE(model.ObjectNear({8 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_NE(model.ObjectNear({31 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_EQ(model.ObjectNear({32 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_EQ(model.ObjectAt({180, 120}), nullptr);
  // What lies in a rectangle lies wholly inside.
  EXPECT_EQ(model.FindShapesInRect({54, 54, 186, 186}).size(), 3U);
  EXPECT_EQ(model.FindShapesInRect({300, 300, 0, 0}).size(), 3U);
  EXPECT_TRUE(model.FindShapesInRect({54, 54, 180, 186}).empty());
}

TEST(View, IdsGoOnFromTheGreatest) {
  const RECT box{1, 1, 9, 9};
  EXPECT_EQ(LayoutMgr().GetModel().NextId(), 101);
  EXPECT_EQ(Shown(ChartText(StateRecord(500, box)))->GetModel().NextId(), 501);
  const auto full = Shown(ChartText(StateRecord(2147483647, box) + StateRecord(102, box)));
  EXPECT_EQ(full->GetModel().NextId(), 101);
  EXPECT_EQ(full->GetModel().NextId(), 103);
}

TEST(View, UndoGoesBackTwentyStepsAndRedoForth) {
  const auto chart = Shown(SmallChart());
  std::string& author = chart->GetProperties().Author;
  for (int change = 1; change <= 25; ++change) {
    author = std::to_string(change);
    chart->TakeSnapshot();
    chart->TakeSnapshot();  // a text that hasn't changed is no step
  }
  int now = 25;
  while (chart->OnCommand(ID_EDIT_UNDO)) EXPECT_EQ(author, std::to_string(--now));
  EXPECT_EQ(now, 5);
  while (chart->OnCommand(ID_EDIT_REDO)) EXPECT_EQ(author, std::to_string(++now));
  EXPECT_EQ(now, 25);
  // A change after an undo drops what could have been redone.
  chart->OnCommand(ID_EDIT_UNDO);
  chart->TakeSnapshot();
  EXPECT_TRUE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
  chart->OnCommand(ID_ZOOM_IN);
  author = "Somebody";
  chart->TakeSnapshot();
  EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
  // The zoom goes back too, and nothing stays selected.
  chart->OnCommand(ID_EDIT_SELECT_ALL);
  chart->OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(author, "24");
  EXPECT_EQ(chart->GetTotalSize(), (SIZE{9000, 9000}));
  EXPECT_TRUE(chart->GetSelection().IsEmpty());
}

}  // namespace
