#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

std::unique_ptr<LayoutMgr> Shown(const std::string& text) {
  auto chart = LoadChart(text);
  chart->ApplyZoom();
  chart->TakeSnapshot();
  return chart;
}

TEST(View, HalvesOfAUnitRoundAwayFromZero) {
  const auto chart = LoadChart(SmallChart());
  for (const auto& [device, model] : Points("3,1 2,0 -3,-1 -2,0 9,2 8,1")) {
    EXPECT_EQ(chart->ToModel(device), model) << device;
  }
}

TEST(View, HitsByLayerAndThenByPlaceInTheList) {
  const RECT box{10, 10, 30, 30};
  const auto chart = Shown(ChartText(NoteRecord(4, box, Block("note")) + MesgRecord(3, 0, box) +
                                     StateRecord(1, box, "first") + StateRecord(2, box, "second")));
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

}  // namespace morvane
