#include "persistence/ModelClipboard.h"
#include "platform/Clipboard.h"
#include "tests/support/ChartTest.h"
#include "tests/support/FakeClipboard.h"
#include "tests/support/Routes.h"

namespace {

using Ids = std::vector<int>;

std::unique_ptr<LayoutMgr> Shown(const std::string& text) {
  auto chart = LoadChart(text);
  chart->ApplyZoom();
  chart->TakeSnapshot();
  return chart;
}

Ids Order(const LayoutMgr& chart) {
  Ids ids;
  for (const Shape* shape : chart.GetModel().Objects()) ids.push_back(shape->GetId());
  return ids;
}

void Select(LayoutMgr& chart, const Ids& ids) {
  chart.GetModel().DeselectAll();
  for (const int id : ids) chart.GetSelection().Add(FindShape(chart, id));
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

TEST(View, OrderChangesWithinALayerOnly) {
  const RECT box{1, 1, 9, 9};
  const auto chart =
      Shown(ChartText(StateRecord(1, box) + NoteRecord(2, box, Block("")) + StateRecord(3, box) +
                      NoteRecord(4, box, Block("")) + StateRecord(5, box)));
  const auto after = [&](const Ids& selection, unsigned command) {
    Select(*chart, selection);
    EXPECT_TRUE(chart->OnCommand(command));
    return Order(*chart);
  };
  EXPECT_EQ(after({2}, ID_BRING_TO_FRONT), (Ids{1, 3, 4, 2, 5}));
  EXPECT_EQ(after({2}, ID_SEND_TO_BACK), (Ids{1, 3, 2, 4, 5}));
  EXPECT_EQ(after({1, 3}, ID_BRING_TO_FRONT), (Ids{2, 4, 5, 1, 3}));
  EXPECT_EQ(after({1, 3}, ID_SEND_TO_BACK), (Ids{2, 4, 3, 1, 5}));
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

TEST(View, CopiedObjectsComeBackWithNewIds) {
  const FakeClipboard clipboard;
  const auto chart = Shown(SmallChart());
  Select(*chart, {101, 102, 103, 104});
  chart->OnCommand(ID_EDIT_COPY);
  EXPECT_TRUE(clipboard.items[0].bytes.starts_with("BEGIN InitialState 101\n"));
  EXPECT_EQ(clipboard.items[0].bytes.back(), '\0');

  const auto other = Shown(ChartText(StateRecord(7, {1, 1, 9, 9})));
  other->OnCommand(ID_EDIT_PASTE);
  ASSERT_EQ(Order(*other), (Ids{7, 101, 102, 103, 104}));
  EXPECT_EQ(Find<Transition>(*other, 103)->GetTarget(), Find<GenericState>(*other, 102));
  EXPECT_EQ(other->GetSelection().Members().size(), 4U);
  EXPECT_TRUE(other->OnCommand(ID_EDIT_UNDO));
  EXPECT_EQ(Order(*other), Ids{7});
}

TEST(View, PastedObjectsLandInTheCornerThatIsShown) {
  // The route is too short for a label, which stands in the window's corner then.
  const auto chart =
      Shown(ChartText(StateRecord(1, {20, 10, 30, 20}) + StateRecord(2, {20, 23, 30, 33}) +
                      TransitionRecord(3, 1, 2, "3 2 1 2", LinkLines("25,20 25,21 25,22 25,23"))));
  chart->SetScrollPos(ScrollBar::Horizontal, 600);
  chart->SetScrollPos(ScrollBar::Vertical, 1200);
  for (const Ids& selection : {Ids{1, 2, 3}, {3}}) {
    Select(*chart, selection);
    chart->OnCommand(ID_EDIT_COPY);
    chart->OnCommand(ID_EDIT_PASTE);
    POINT corner{9999, 9999};
    for (const Collectable* member : chart->GetSelection().Members()) {
      const RECT bounds = dynamic_cast<const Shape*>(member)->GetBounds();
      corner = {std::min(corner.x, bounds.left), std::min(corner.y, bounds.top)};
    }
    EXPECT_EQ(corner, (POINT{101, 201})) << selection.size();
  }
}

TEST(View, PasteDropsWhatCantStandAlone) {
  const auto chart = Shown(
      ChartText(InitialRecord(101, {20, 10, 24, 14}) + StateRecord(102, {17, 24, 27, 32}) +
                TransitionRecord(103, 101, 102, "3 1 1 2", LinkLines("22,14 22,15 22,23 22,24")) +
                MesgRecord(104, 103, {17, 16, 27, 22})));
  Select(*chart, {104, 102});
  chart->OnCommand(ID_EDIT_COPY);
  chart->OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(Order(*chart).size(), 5U) << "the state alone";
  Select(*chart, {102, 103});
  chart->OnCommand(ID_EDIT_CUT);
  EXPECT_EQ(Order(*chart).size(), 2U) << "the message goes with its transition";
  chart->OnCommand(ID_EDIT_PASTE);
  const auto& pasted = dynamic_cast<Transition&>(*chart->GetModel().Objects().back());
  EXPECT_EQ(pasted.GetSource(), nullptr);
  EXPECT_NE(pasted.GetTarget(), nullptr);
}

TEST(View, AClipboardThatCannotBeUsedIsSaidAndChangesNothing) {
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  const auto chart = Shown(SmallChart());
  const std::string before = chart->ModelText();
  const std::string nothing = "The data from clipboard cannot be pasted";
  const std::string tornBlock = NoteRecord(8, {1, 1, 9, 9}, "5\nTEXTBEGIN\nab\nTEXTEND\n");
  const std::pair<std::string, std::string> cases[] = {
      {MesgRecord(5, 3, {1, 1, 9, 9}), nothing},  // it needs its transition
      {"BEGIN InitialState 7\nno number\n", "Invalid File"},
      {tornBlock, "Invalid or Corrupt File"},
      {"no record\n", nothing},
      {"BEGIN Unknown 1\n1\n", nothing}};
  for (const auto& [text, said] : cases) {
    clipboard.items = {{ModelClipboard::kFormat, text + '\0' + "behind the end"}};
    boxes.Expect(said);
    chart->OnCommand(ID_EDIT_PASTE);
    EXPECT_EQ(chart->ModelText(), before) << text;
    EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_UNDO).enabled) << text;
  }
  clipboard.items = {{ModelClipboard::kFormat, ""}};
  chart->OnCommand(ID_EDIT_PASTE);
  Select(*chart, {102});
  clipboard.failure = ClipboardError::Open;
  for (const unsigned command : {ID_EDIT_PASTE, ID_EDIT_COPY}) {
    boxes.Expect("Error accessing clipboard");
    chart->OnCommand(command);
    EXPECT_EQ(boxes.LastFlags(), MB_OK);
  }
  EXPECT_EQ(chart->ModelText(), before);
}

}  // namespace
