#include <random>

#include "model/MoveSettings.h"
#include "platform/PopupMenus.h"
#include "tests/support/ChartTest.h"
#include "tests/support/FakeClipboard.h"
#include "tests/support/Routes.h"

namespace morvane {

// What moves with what, and where copies come to.

namespace {

/// A state 1 with another one, 2, that holds 3; beside it the state 4 with a transition 5 from 2
/// and its message 6, a note 7 and a free line 8, all inside of 1. The state 9 stands beside 1,
/// with a transition 10 from 4.
class Moving : public testing::Test, public PopupMenus {
 protected:
  Moving() {
    Show(ChartText(
        StateRecord(1, {20, 20, 140, 110}) + StateRecord(2, {26, 30, 60, 60}) +
        StateRecord(3, {30, 36, 44, 48}) + StateRecord(4, {90, 30, 110, 60}) +
        TransitionRecord(5, 2, 4, "2 2 4 2", LinkLines("60,45 61,45 89,45 90,45")) +
        MesgRecord(6, 5, {70, 42, 80, 48}) + NoteRecord(7, {30, 80, 46, 90}, Block("note")) +
        LineRecord(8, 0, 0, "1 1 1 1") + StateRecord(9, {170, 30, 190, 60}) +
        TransitionRecord(10, 4, 9, "2 2 4 2", LinkLines("110,45 111,45 169,45 170,45"))));
  }
  void Show(const std::string& text) {
    std::string reason;
    ASSERT_TRUE(chart.ReplaceText(text, reason)) << reason;
  }
  void Select(const std::vector<int>& ids) {
    std::vector<Shape*> shapes;
    for (const int id : ids) shapes.push_back(FindShape(chart, id));
    chart.GetModel().Select(shapes);
  }
  std::map<int, RECT> Places() const {
    std::map<int, RECT> places;
    for (const Shape* shape : chart.GetModel().Objects())
      places[shape->GetId()] = shape->GetMoveBounds();
    return places;
  }
  /// Who has gone exactly that way, and behind a bar who has changed otherwise.
  std::string Gone(const std::map<int, RECT>& before, POINT way) const {
    std::string whole;
    std::string other;
    for (const auto& [id, box] : Places()) {
      if (!before.contains(id) || box == before.at(id)) continue;
      (box == before.at(id) + way ? whole : other) += std::to_string(id) + " ";
    }
    return whole + "| " + other;
  }
  /// Drags from a place to another, in model units.
  void Drag(POINT from, POINT way, unsigned flags = 0) {
    window.Move(chart.ToClient(from + way));
    window.Release(chart.ToClient(from + way));
    chart.OnLButtonDown(MK_LBUTTON | flags, chart.ToClient(from));
  }
  RECT BoxOf(int id) const { return FindShape(chart, id)->GetBounds(); }
  std::string TopLefts(const std::vector<int>& ids) const {
    std::vector<POINT> corners;
    for (const int id : ids) corners.push_back(TopLeft(BoxOf(id)));
    return Text(corners);
  }
  int Steps() {
    int steps = 0;
    while (chart.OnCommand(ID_EDIT_UNDO)) ++steps;
    return steps;
  }
  unsigned Track(const std::vector<Item>& /*items*/, POINT /*screen*/) override { return choice; }

  unsigned choice = 0;
  const UseService<PopupMenus> useMenus{*this};
  MemoryProfile profile;
  const UseService<Profile> useProfile{profile};
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  LayoutMgr chart;
  FakeWindow window{chart};
};

TEST_F(Moving, ContentsGoAlongByAltOrTheSettingButNeverWithASize) {
  constexpr POINT onState1{80, 100};
  constexpr POINT onState4{100, 55};
  constexpr POINT way{-7, 5};
  constexpr POINT corner{139, 109};
  const struct {
    POINT press;
    unsigned flags;
    bool altAtRelease;
    bool setting;
    const char* gone;
  } cases[] = {{onState1, 0, false, false, "1 | "},
               {onState1, MK_ALT, false, false, "1 2 3 4 5 6 7 8 | 10 "},
               {onState1, 0, true, false, "1 2 3 4 5 6 7 8 | 10 "},
               {onState1, 0, false, true, "1 2 3 4 5 6 7 8 | 10 "},
               {onState4, MK_ALT, false, true, "4 | 5 6 10 "},
               {corner, MK_ALT, true, true, "| 1 "}};
  for (const auto& [press, flags, altAtRelease, setting, gone] : cases) {
    MoveSettings::SetMovesContents(setting);
    Select({press == onState4 ? 4 : 1});
    window.altDown = altAtRelease;
    const std::string text = chart.ModelText();
    const auto before = Places();
    Drag(press, way, flags);
    EXPECT_EQ(Gone(before, way), gone) << press.x << flags << altAtRelease << setting;
    EXPECT_EQ(window.Feedback(), 0U);
    chart.OnCommand(ID_EDIT_UNDO);
    EXPECT_EQ(chart.ModelText(), text);
  }
  chart.OnCommand(ID_MOVE_CONTENTS);
  EXPECT_FALSE(chart.OnUpdateCommand(ID_MOVE_CONTENTS).checked);
  EXPECT_EQ(profile.GetInt("Settings", "MoveContents", 7), 0);
}

TEST_F(Moving, ContentsAreSelectedWithTheRoutesBetweenThem) {
  HiddenWindow menu(&chart);
  menu.SetTarget(FindShape(chart, 1));
  menu.OnCommand(ID_SELECT_CONTENTS);
  std::set<int> ids;
  for (const Shape* shape : chart.GetModel().SelectedShapes()) ids.insert(shape->GetId());
  EXPECT_EQ(ids, (std::set<int>{2, 3, 4, 5, 6, 7, 8}));
  menu.SetTarget(FindShape(chart, 9));
  EXPECT_FALSE(menu.OnUpdateCommand(ID_SELECT_CONTENTS).enabled);
}

TEST_F(Moving, ArrowsMoveAndSizeWhatIsSelected) {
  using enum VirtualKey;
  const struct {
    std::vector<int> ids;
    VirtualKey key;
    unsigned flags;
    RECT last;  ///< where the last one stands then
  } cases[] = {{{9}, Right, 0, {171, 30, 191, 60}},
               {{2, 9}, Up, MK_SHIFT, {170, 27, 190, 57}},
               {{9}, Right, MK_CONTROL, {170, 30, 191, 60}},
               {{9}, Down, MK_CONTROL | MK_SHIFT, {170, 30, 190, 63}},
               {{1, 3}, Left, MK_ALT, {29, 36, 43, 48}}};
  for (const auto& [ids, key, flags, last] : cases) {
    Select(ids);
    EXPECT_TRUE(chart.OnKeyDown(key, flags));
    EXPECT_EQ(BoxOf(ids.back()), last);
    chart.OnCommand(ID_EDIT_UNDO);
  }
  // A transition is not torn off its states.
  Select({10});
  const std::string text = chart.ModelText();
  EXPECT_TRUE(chart.OnKeyDown(Right, 0));
  EXPECT_EQ(chart.ModelText(), text);
  // The same key again and again is one step, and ends at the edge or at the least size.
  Show(text);
  Select({3});
  for (int i = 0; i < 50; ++i) chart.OnKeyDown(Left, 0);
  for (int i = 0; i < 50; ++i) chart.OnKeyDown(Up, MK_CONTROL | MK_SHIFT);
  EXPECT_EQ(BoxOf(3), (RECT{1, 36, 15, 40}));
  EXPECT_EQ(Steps(), 2);
  // Without a selection they scroll, and what is nudged stays in sight.
  EXPECT_TRUE(chart.OnKeyDown(Down, 0));
  EXPECT_GT(chart.GetScrollPosition().y, 0);
  EXPECT_EQ(Steps(), 0);
  chart.OnCommand(ID_EDIT_REDO);
  Select({3});
  for (int i = 0; i < 100; ++i) chart.OnKeyDown(Right, MK_SHIFT);
  const RECT box = chart.ToClient(BoxOf(3));
  EXPECT_EQ(BoxOf(3).left, 301);
  EXPECT_TRUE(box.left >= 0 && box.right <= window.client.right) << box.left;
}

TEST_F(Moving, CopiesComeBesideTheirOriginalsAndIntoSight) {
  Select({9});
  chart.OnCommand(ID_EDIT_COPY);
  const std::string copied = clipboard.items.front().bytes;
  for (int i = 0; i < 3; ++i) chart.OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(TopLefts({101, 102, 103}), "173,33 176,36 179,39");
  chart.OnCommand(ID_DUPLICATE);
  EXPECT_EQ(TopLefts({104}), "182,42");
  EXPECT_EQ(clipboard.items.front().bytes, copied);
  Select({9});
  chart.OnCommand(ID_EDIT_CUT);
  chart.OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(TopLefts({105}), "170,30");
  chart.OnCommand(ID_EDIT_UNDO);
  chart.OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(TopLefts({105}), "170,30") << "the place is free again";
  // Far away it comes into the middle, then beside that; and from a menu to the pointer.
  chart.ScrollTo({4800, 3600});
  for (int i = 0; i < 2; ++i) chart.OnCommand(ID_EDIT_PASTE);
  EXPECT_EQ(TopLefts({106, 107}), "890,660 893,663");
  choice = ID_EDIT_PASTE;
  chart.OnContextMenu({60, 120});
  EXPECT_EQ(TopLefts({108}), "810,620");
  chart.OnContextMenu(chart.ToClient(POINT{895, 665}));
  EXPECT_EQ(TopLefts({109}), "895,665");
  // What the menu copies is what it was opened on.
  choice = ID_EDIT_COPY;
  chart.ScrollTo({0, 0});
  Select({1, 2});
  chart.OnContextMenu(chart.ToClient(POINT{35, 85}));
  EXPECT_TRUE(clipboard.items.front().bytes.starts_with("BEGIN Note 7\n"));
}

TEST_F(Moving, CopiesKeepTheOrderOfTheChart) {
  Select({10, 9, 3, 5, 4, 2, 6});
  chart.GetModel().SendToBack(FindShape(chart, 9));
  chart.OnCommand(ID_DUPLICATE);
  std::vector<int> ids;
  for (const Shape* shape : chart.GetModel().Objects()) ids.push_back(shape->GetId());
  EXPECT_EQ(ids,
            (std::vector<int>{9, 1, 2, 3, 4, 5, 6, 7, 8, 10, 106, 101, 102, 103, 104, 105, 107}))
      << "painted in the order of the originals, and numbered in that of theirs";
}

TEST_F(Moving, ObjectsArePutInOrder) {
  const struct {
    std::vector<int> ids;
    unsigned command;
    const char* places;  ///< empty where it can't be done
  } cases[] = {{{9, 4}, ID_ALIGN_LEFT, "90,30 90,30"},
               {{4, 7}, ID_ALIGN_RIGHT, "26,30 30,80"},
               {{4, 7}, ID_ALIGN_CENTRE, "28,30 30,80"},
               {{7, 4}, ID_ALIGN_TOP, "30,30 90,30"},
               {{7, 4}, ID_ALIGN_MIDDLE, "30,40 90,30"},
               {{3, 7}, ID_ALIGN_BOTTOM, "30,78 30,80"},
               {{4, 9, 7, 2}, ID_DISTRIBUTE_ACROSS, "126,30 170,30 30,80 69,30"},
               {{7, 3, 2}, ID_DISTRIBUTE_DOWN, "30,80 30,36 26,49"},
               {{1, 2, 9}, ID_ALIGN_TOP, "20,30 26,40 170,30"},
               {{1, 9}, ID_ALIGN_TOP, "20,30 170,30"},
               {{1, 3}, ID_ALIGN_LEFT, "30,20 30,36"},
               {{9}, ID_ALIGN_TOP, ""},
               {{9, 10, 6}, ID_ALIGN_TOP, ""},
               {{9, 7}, ID_DISTRIBUTE_DOWN, ""}};
  for (const auto& [ids, command, places] : cases) {
    const std::string text = chart.ModelText();
    Select(ids);
    const bool can = *places != '\0';
    EXPECT_EQ(chart.OnCommand(command), can) << command;
    EXPECT_EQ(can ? TopLefts(ids) : "", places) << command;
    if (can) chart.OnCommand(ID_EDIT_UNDO);
    EXPECT_EQ(chart.ModelText(), text) << "one step";
  }
  Select({7, 4});
  chart.OnCommand(ID_SAME_WIDTH);
  EXPECT_EQ(BoxOf(7), (RECT{30, 80, 50, 90}));
  chart.OnCommand(ID_SAME_SIZE);
  EXPECT_EQ(BoxOf(7), (RECT{30, 80, 50, 110}));
}

/// Moves of any kind of any selection on nested charts: undo shows each step again, the contents of
/// a state keep their places in it, and nothing gets off the chart.
TEST_F(Moving, AnyMoveOfAnySelectionCanBeUndone) {
  std::mt19937 random(17);
  const auto below = [&random](int limit) { return static_cast<int>(random() % limit); };
  const std::vector<unsigned> commands = {ID_ALIGN_LEFT,      ID_ALIGN_CENTRE,      ID_ALIGN_RIGHT,
                                          ID_ALIGN_TOP,       ID_ALIGN_MIDDLE,      ID_ALIGN_BOTTOM,
                                          ID_DISTRIBUTE_DOWN, ID_SAME_WIDTH,        ID_SAME_HEIGHT,
                                          ID_SAME_SIZE,       ID_DISTRIBUTE_ACROSS, ID_DUPLICATE};
  const std::string first = chart.ModelText();
  int along = 0;
  for (int round = 0; round < 150; ++round) {
    Show(first);
    std::vector<std::string> texts = {chart.ModelText()};
    for (int move = 0; move < 12; ++move) {
      std::vector<Shape*> chosen;
      for (Shape* shape : chart.GetModel().Objects()) {
        if (below(3) == 0) chosen.push_back(shape);
      }
      chart.GetModel().Select(chosen);
      MoveSettings::SetMovesContents(below(2) == 0);
      const RECT holder = BoxOf(2);
      const RECT held = BoxOf(3);
      const int kind = below(3);
      if (kind == 0) {
        chart.OnCommand(commands[static_cast<std::size_t>(below(12))]);
      } else if (kind == 1) {
        constexpr int firstArrow = static_cast<int>(VirtualKey::Left);
        chart.OnKeyDown(static_cast<VirtualKey>(firstArrow + below(4)),
                        below(2) == 0 ? MK_SHIFT : 0U);
      } else {
        Drag(TopLeft(holder) + POINT{3, 15}, {below(60) - 30, below(60) - 30},
             below(2) == 0 ? MK_ALT : 0U);
      }
      const POINT way = TopLeft(BoxOf(2)) - TopLeft(holder);
      const bool goesAlong = MoveSettings::MovesContents() && holder + way == BoxOf(2) &&
                             held != holder && UnionRect(holder, held) == holder;
      if (kind != 0 && goesAlong && way != POINT{}) {
        EXPECT_EQ(BoxOf(3), held + way) << round << ' ' << move;
        ++along;
      }
      for (const auto& [id, box] : Places()) EXPECT_TRUE(box.left >= 0 && box.top >= 0) << id;
      if (chart.ModelText() != texts.back()) texts.push_back(chart.ModelText());
    }
    for (std::size_t step = texts.size(); step-- > 1;) {
      ASSERT_EQ(chart.ModelText(), texts[step]) << round;
      ASSERT_TRUE(chart.OnCommand(ID_EDIT_UNDO));
    }
    ASSERT_EQ(chart.ModelText(), texts.front());
  }
  EXPECT_GT(along, 20);
}

TEST_F(Moving, AHandleIsTakenFromALittleOutsideToo) {
  const RECT before = BoxOf(9);
  for (const int outside : {-2, 0, 2}) {
    Show(chart.ModelText());
    Select({9});
    const POINT corner = BottomRight(chart.ToClient(BoxOf(9))) + POINT{outside, outside};
    window.Move(corner + POINT{60, 60});
    window.Release(corner + POINT{60, 60});
    chart.OnLButtonDown(MK_LBUTTON, corner);
    EXPECT_EQ(BoxOf(9), RECT(before.left, before.top, before.right + 10, before.bottom + 10));
    chart.OnCommand(ID_EDIT_UNDO);
  }
}

}  // namespace

}  // namespace morvane
