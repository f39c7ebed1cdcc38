#include "persistence/ModelClipboard.h"
#include "platform/Clipboard.h"
#include "tests/support/ChartTest.h"
#include "tests/support/FakeClipboard.h"

namespace {

std::unique_ptr<LayoutMgr> Shown(const std::string& text) {
  auto chart = LoadChart(text);
  chart->ApplyZoom();
  chart->TakeSnapshot();
  return chart;
}

std::vector<int> Order(const LayoutMgr& chart) {
  std::vector<int> ids;
  for (const Shape* shape : chart.GetModel().Objects()) ids.push_back(shape->GetId());
  return ids;
}

void Select(LayoutMgr& chart, std::initializer_list<int> ids) {
  chart.GetModel().DeselectAll();
  for (const int id : ids) chart.GetSelection().Add(FindShape(chart, id));
}

TEST(View, Conversions) {
  LayoutMgr chart;
  const struct {
    int device;
    int model;
  } cases[] = {{3, 1}, {2, 0}, {-3, -1}, {-2, 0}, {9, 2}, {8, 1}};
  for (const auto& c : cases) EXPECT_EQ(chart.ToModel(c.device), c.model) << c.device;
  EXPECT_EQ(chart.ToLogical(7), 42);
}

TEST(View, ZoomStopsAtItsLimitsAndSnapsThePosition) {
  const auto chart = Shown(SmallChart());
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
  const auto chart = Shown(SmallChart());
  const struct {
    int distance;
    int position;
  } steps[] = {{5, 0}, {11, 6}, {-5, 6}, {-11, 0}, {100, 96}, {-1000, 0}, {2'000'000'000, 9000}};
  for (const auto& step : steps) {
    chart->OnScrollBy({step.distance, 0});
    EXPECT_EQ(chart->GetScrollPos(ScrollBar::Horizontal), step.position) << step.distance;
  }
}

TEST(View, HitsByLayerAndThenByPlaceInTheList) {
  const RECT box{10, 10, 30, 30};
  const std::string mesg = MesgRecord(3, 0, box);
  const auto chart = Shown(
      ChartText(NoteRecord(4, box, Block("")) + mesg + StateRecord(1, box) + StateRecord(2, box)));
  const POINT inside{120, 120};
  EXPECT_EQ(chart->GetModel().ObjectAt(inside)->GetId(), 4);
  EXPECT_EQ(chart->GetModel().ObjectNear(inside, LAYER_STATE)->GetId(), 2);
  delete FindShape(*chart, 4);
  EXPECT_EQ(chart->GetModel().ObjectAt(inside)->GetId(), 3);
  // Two units beyond the edge are near; the right and bottom edges are outside.
  EXPECT_NE(chart->GetModel().ObjectNear({8 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_NE(chart->GetModel().ObjectNear({31 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_EQ(chart->GetModel().ObjectNear({32 * 6, 120}, LAYER_STATE), nullptr);
  EXPECT_EQ(chart->GetModel().ObjectAt({180, 120}), nullptr);
}

TEST(View, OrderChangesWithinALayerOnly) {
  const std::string records = StateRecord(1, {1, 1, 9, 9}) +
                              NoteRecord(2, {1, 1, 9, 9}, Block("")) +
                              StateRecord(3, {1, 1, 9, 9}) +
                              NoteRecord(4, {1, 1, 9, 9}, Block("")) + StateRecord(5, {1, 1, 9, 9});
  const struct {
    std::initializer_list<int> selection;
    unsigned command;
    std::vector<int> order;
  } cases[] = {
      {{1}, ID_BRING_TO_FRONT, {2, 3, 4, 5, 1}},    {{2}, ID_BRING_TO_FRONT, {1, 3, 4, 2, 5}},
      {{5}, ID_SEND_TO_BACK, {5, 1, 2, 3, 4}},      {{4}, ID_SEND_TO_BACK, {1, 4, 2, 3, 5}},
      {{1, 3}, ID_BRING_TO_FRONT, {2, 4, 5, 1, 3}}, {{3, 5}, ID_SEND_TO_BACK, {5, 3, 1, 2, 4}}};
  for (const auto& c : cases) {
    const auto chart = Shown(ChartText(records));
    Select(*chart, c.selection);
    EXPECT_TRUE(chart->OnCommand(c.command));
    EXPECT_EQ(Order(*chart), c.order);
  }
}

TEST(View, ShapesInARectangleLieWhollyInside) {
  const auto chart =
      Shown(ChartText(StateRecord(1, {10, 10, 20, 20}) + StateRecord(2, {30, 10, 40, 20})));
  EXPECT_EQ(chart->GetModel().FindShapesInRect({54, 54, 126, 126}).size(), 1U);
  EXPECT_TRUE(chart->GetModel().FindShapesInRect({54, 54, 120, 126}).empty());
  EXPECT_EQ(chart->GetModel().FindShapesInRect({300, 300, 0, 0}).size(), 2U);
}

TEST(View, IdsGoOnFromTheGreatest) {
  LayoutMgr chart;
  EXPECT_EQ(chart.GetModel().NextId(), 101);
  EXPECT_EQ(Shown(ChartText(StateRecord(500, {1, 1, 9, 9})))->GetModel().NextId(), 501);
  const auto full =
      Shown(ChartText(StateRecord(2147483647, {1, 1, 9, 9}) + StateRecord(102, {1, 1, 9, 9})));
  EXPECT_EQ(full->GetModel().NextId(), 101);
  EXPECT_EQ(full->GetModel().NextId(), 103);
}

TEST(View, UndoAndRedoGiveTheSameTexts) {
  const auto chart = Shown(SmallChart());
  std::vector<std::string> texts{chart->ModelText()};
  for (int change = 0; change < 25; ++change) {
    POINT offset{1, 0};
    FindShape(*chart, 104)->OnBroadcast(BROADCAST_MOVE, &offset);
    chart->TakeSnapshot();
    chart->TakeSnapshot();  // a text that hasn't changed is no step
    texts.push_back(chart->ModelText());
  }
  int steps = 0;
  for (; chart->OnCommand(ID_EDIT_UNDO); ++steps) {
    EXPECT_EQ(chart->ModelText(), texts[texts.size() - 2 - static_cast<std::size_t>(steps)]);
  }
  EXPECT_EQ(steps, 20);
  while (chart->OnCommand(ID_EDIT_REDO)) --steps;
  EXPECT_EQ(steps, 0);
  EXPECT_EQ(chart->ModelText(), texts.back());
  // A change after an undo drops what could have been redone.
  chart->OnCommand(ID_EDIT_UNDO);
  chart->TakeSnapshot();
  EXPECT_TRUE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
  chart->GetProperties().Author = "Somebody";
  chart->TakeSnapshot();
  EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_REDO).enabled);
}

TEST(View, UndoFollowsTheZoomAndClearsTheSelection) {
  const auto chart = Shown(SmallChart());
  chart->OnCommand(ID_ZOOM_IN);
  chart->GetProperties().Author = "Somebody";
  chart->TakeSnapshot();
  chart->OnCommand(ID_EDIT_SELECT_ALL);
  chart->OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(chart->GetZoom(), 6);
  EXPECT_EQ(chart->GetTotalSize(), (SIZE{9000, 9000}));
  EXPECT_TRUE(chart->GetSelection().IsEmpty());
  EXPECT_EQ(chart->GetProperties().Author, "Untitled");
}

TEST(View, CopiedObjectsComeBackWithNewIds) {
  const auto chart = Shown(SmallChart());
  Select(*chart, {101, 102, 103, 104});
  chart->OnCommand(ID_EDIT_COPY);
  ClipboardError error = ClipboardError::None;
  const auto bytes = Service<Clipboard>::Get().Get(ModelClipboard::kFormat, error);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->substr(0, 23), "BEGIN InitialState 101\n");
  EXPECT_EQ(bytes->back(), '\0');

  const auto other = Shown(ChartText(StateRecord(7, {1, 1, 9, 9})));
  other->OnCommand(ID_EDIT_PASTE);
  ASSERT_EQ(Order(*other), (std::vector<int>{7, 101, 102, 103, 104}));
  const auto* pasted = Find<Transition>(*other, 103);
  EXPECT_EQ(pasted->GetTarget(), Find<GenericState>(*other, 102));
  EXPECT_EQ(other->GetSelection().Members().size(), 4U);
  // The whole lands in the top left corner of what is shown.
  EXPECT_EQ(FindShape(*other, 102)->GetBounds().left, 1);
  EXPECT_EQ(FindShape(*other, 101)->GetBounds().top, 1);
  EXPECT_TRUE(other->OnCommand(ID_EDIT_UNDO));
  EXPECT_EQ(Order(*other), std::vector<int>{7});
}

TEST(View, PastedObjectsLandInTheCornerThatIsShown) {
  // The route is too short for a label, which stands in the window's corner then.
  const auto chart =
      Shown(ChartText(StateRecord(1, {20, 10, 30, 20}) + StateRecord(2, {20, 23, 30, 33}) +
                      TransitionRecord(3, 1, 2, "3 2 1 2",
                                       "2 25 20 25 21 \n0 25 21 25 22 \n"
                                       "3 25 22 25 23 \n")));
  chart->SetScrollPos(ScrollBar::Horizontal, 600);
  chart->SetScrollPos(ScrollBar::Vertical, 1200);
  for (const auto& selection : {std::initializer_list<int>{1, 2, 3}, {3}}) {
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
  const std::string links = "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n";
  const auto chart = Shown(ChartText(
      InitialRecord(101, {20, 10, 24, 14}) + StateRecord(102, {17, 24, 27, 32}) +
      TransitionRecord(103, 101, 102, "3 1 1 2", links) + MesgRecord(104, 103, {17, 16, 27, 22})));
  Select(*chart, {104, 102});
  chart->OnCommand(ID_EDIT_COPY);
  chart->OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(Order(*chart).size(), 5U) << "the state alone";
  Select(*chart, {102, 103});
  chart->OnCommand(ID_EDIT_CUT);
  EXPECT_EQ(Order(*chart).size(), 2U) << "the message goes with its transition";
  chart->OnCommand(ID_EDIT_PASTE);
  const auto* pasted = dynamic_cast<Transition*>(chart->GetModel().Objects().back());
  ASSERT_NE(pasted, nullptr);
  EXPECT_EQ(pasted->GetSource(), nullptr);
  EXPECT_NE(pasted->GetTarget(), nullptr);
}

TEST(View, AClipboardThatCannotBeUsedIsSaidAndChangesNothing) {
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  const auto chart = Shown(SmallChart());
  const std::string before = chart->ModelText();
  // A message without its transition is nothing to paste.
  const std::string lonely = MesgRecord(5, 3, {1, 1, 9, 9});
  const std::string garbled = "BEGIN InitialState 7\nno number\n";
  const std::string tornBlock = NoteRecord(8, {1, 1, 9, 9}, "5\nTEXTBEGIN\nab\nTEXTEND\n");
  for (const std::string& text : {lonely, garbled, tornBlock}) {
    clipboard.items = {{ModelClipboard::kFormat, text + '\0' + "behind the end"}};
    boxes.Expect(text == lonely    ? "The data from clipboard cannot be pasted"
                 : text == garbled ? "Invalid File"
                                   : "Invalid or Corrupt File");
    chart->OnCommand(ID_EDIT_PASTE);
    EXPECT_EQ(chart->ModelText(), before);
    EXPECT_FALSE(chart->OnUpdateCommand(ID_EDIT_UNDO).enabled);
  }
  for (const std::string text : {"", "no record\n", "BEGIN Unknown 1\n1\n"}) {
    clipboard.items = {{ModelClipboard::kFormat, text}};
    if (!text.empty()) boxes.Expect("cannot be pasted");
    chart->OnCommand(ID_EDIT_PASTE);
    EXPECT_EQ(chart->ModelText(), before) << text;
  }
  Select(*chart, {102});
  clipboard.failure = ClipboardError::Open;
  for (const unsigned command : {ID_EDIT_PASTE, ID_EDIT_COPY}) {
    boxes.Expect("Error accessing clipboard");
    chart->OnCommand(command);
    EXPECT_EQ(boxes.LastFlags(), MB_OK);
    EXPECT_EQ(chart->ModelText(), before);
  }
}

TEST(View, KeysScrollThePaper) {
  const auto chart = LoadChart(SmallChart());
  FakeWindow window(*chart);
  chart->ApplyZoom();
  const struct {
    VirtualKey key;
    POINT position;
  } cases[] = {{VirtualKey::Right, {6, 0}}, {VirtualKey::Down, {6, 6}}, {VirtualKey::Next, {6, 42}},
               {VirtualKey::Left, {0, 42}}, {VirtualKey::Up, {0, 36}},  {VirtualKey::Prior, {0, 0}},
               {VirtualKey::Next, {0, 36}}, {VirtualKey::Home, {0, 0}}};
  for (const auto& c : cases) {
    EXPECT_TRUE(chart->OnKeyDown(c.key, 0));
    EXPECT_EQ(chart->GetScrollPosition(), c.position) << static_cast<int>(c.key);
  }
  EXPECT_FALSE(chart->OnKeyDown(VirtualKey::End, 0));
}

TEST(View, PaintsByLayers) {
  const RECT box{10, 10, 30, 30};
  const auto chart = Shown(ChartText(NoteRecord(4, box, Block("note")) + MesgRecord(3, 0, box) +
                                     StateRecord(1, box, "first") + StateRecord(2, box, "second")));
  CNullDC reference;
  CMetaFileDC dc(reference);
  ChartPicture(*chart).Paint(dc);
  std::vector<std::string> texts;
  for (const Metafile::Record& record : dc.Close().records) {
    if (record.kind == Metafile::Kind::TextOut) texts.push_back(record.text);
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"first", "[Entry]", "[Exit]", "second", "[Entry]",
                                             "[Exit]", "onEvent(e)", "note"}));
}

TEST(View, AnchorsStandAroundTheirShape) {
  const auto chart =
      Shown(ChartText(StateRecord(1, {10, 10, 21, 19}) + InitialRecord(2, {-3, 4, 2, 9})));
  const auto& state = Find<State>(*chart, 1)->GetAnchors();
  EXPECT_EQ(state.size(), 12U);
  EXPECT_EQ(state.at({1, SIDE_TOP}), (POINT{13, 10}));
  EXPECT_EQ(state.at({3, SIDE_RIGHT}), (POINT{21, 16}));
  EXPECT_EQ(state.at({1, SIDE_BOTTOM}), (POINT{17, 19}));
  EXPECT_EQ(state.at({3, SIDE_LEFT}), (POINT{10, 12}));
  const auto& mark = Find<State>(*chart, 2)->GetAnchors();
  EXPECT_EQ(mark.at({1, SIDE_TOP}), (POINT{0, 4}));
  EXPECT_EQ(mark.size(), 4U);
}

}  // namespace
