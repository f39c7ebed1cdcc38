#include "dialogs/StatePropDlg.h"
#include "persistence/ModelStream.h"
#include "platform/PopupMenus.h"
#include "shell/CObjectTree.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"
#include "tests/support/TreeRows.h"

namespace {

using Rows = std::vector<std::string>;

constexpr int kA = 1;
constexpr int kB = 2;
constexpr int kC = 3;
constexpr int kArrow = 4;
constexpr int kMesg = 5;

/// Chooses one command in every menu that opens.
class OneChoice : public PopupMenus {
 public:
  unsigned Track(const std::vector<Item>& items, POINT at) override {
    first = items.front().text;
    screen = at;
    return choice;
  }
  unsigned choice = 0;
  std::string first;
  POINT screen;

 private:
  const UseService<PopupMenus> use{*this};
};

class ObjectTree : public testing::Test {
 protected:
  ObjectTree() { chart.SetObjectTree(&tree); }
  ~ObjectTree() override { chart.SetObjectTree(nullptr); }

  /// Opens a chart as its window does: three states; a message on the way from the first to the
  /// second.
  void Open() {
    std::istringstream in(ChartText(
        StateRecord(kA, {10, 10, 20, 18}, "A") + MesgRecord(kMesg, kArrow, {30, 10, 40, 16}, "Go") +
        TransitionRecord(kArrow, kA, kB, "2 2 4 2", LinkLines("20,14 21,14 59,14 60,14")) +
        NoteRecord(9, {80, 80, 90, 86}, Block("n")) + StateRecord(kB, {60, 10, 70, 18}, "B") +
        StateRecord(kC, {60, 40, 70, 48}, "C")));
    ModelStream stream(in);
    stream >> chart;
    chart.OnInitialUpdate();
  }
  template <class Made>
  Made& Get(int id) {
    return *Find<Made>(chart, id);
  }
  void Command(int id, unsigned command) {
    HiddenWindow menu(&chart);
    menu.SetTarget(FindShape(chart, id));
    menu.OnCommand(command);
  }
  void Delete(int id) { delete FindShape(chart, id); }
  /// What stands below the root, which is open.
  Rows Shown() const {
    Rows rows = TreeRows(tree);
    EXPECT_EQ(rows.front(), "+[0]Untitled");
    rows.erase(rows.begin());
    return rows;
  }

  CObjectTree tree;
  LayoutMgr chart;
  ScriptedMessageBoxes boxes;
  ScriptedDialogHost host;
};

const Rows kAToB = {"  [1]A", "    [2]Go", "      [1]B", "      [5]onGo []", "  [1]B", "  [1]C"};

TEST_F(ObjectTree, NewChartOpensItsRootWithTheFirstObject) {
  chart.OnInitialUpdate();
  POINT place{60, 60};
  chart.GetModel().InsertNote(place);
  EXPECT_EQ(TreeRows(tree), Rows{"[0]Untitled"});
  chart.GetModel().InsertInitialState(place);
  EXPECT_EQ(Shown(), Rows{"  [6]InitialState"});
  tree.Collapse(*tree.FirstItem());
  chart.GetModel().InsertFinalState(place);
  chart.GetModel().InsertTransition(place);
  EXPECT_EQ(TreeRows(tree), (Rows{"[0]Untitled", "  [6]InitialState", "  [7]FinalState", "  [4]"}));
}

TEST_F(ObjectTree, FollowsTheEndsOfATransition) {
  Open();
  auto& arrow = Get<Transition>(kArrow);
  arrow.AttachSource(&Get<GenericState>(kC), {2, SIDE_LEFT});
  EXPECT_EQ(Shown(),
            (Rows{"  [1]A", "  [1]B", "  [1]C", "    [2]Go", "      [1]B", "      [5]onGo []"}));
  Delete(kB);
  EXPECT_EQ(Shown(), (Rows{"  [1]A", "  [1]C", "    [4]Go"}));
  EXPECT_TRUE(tree.FindItems(&Get<Shape>(kMesg)).empty());
  arrow.AttachTarget(&Get<GenericState>(kC), {2, SIDE_TOP});
  EXPECT_EQ(Shown(), (Rows{"  [1]A", "  [1]C", "    [3]Go", "      [5]onGo []"}));
  arrow.MoveTargetFree(400, 400);
  Delete(kC);
  EXPECT_EQ(Shown(), (Rows{"  [1]A", "  [4]Go"}));
  Delete(kArrow);
  EXPECT_EQ(Shown(), Rows{"  [1]A"});
}

TEST_F(ObjectTree, FollowsNamesAndMessages) {
  Open();
  host.Expect("State Properties", [](CDialog& dialog) {
    ScriptedDialogHost::Type(dialog, StatePropDlg::IDC_NAME, "Busy");
    ScriptedDialogHost::Press(dialog, IDOK);
  });
  Command(kB, ID_OBJECT_PROPERTIES);
  Delete(kMesg);
  EXPECT_EQ(Shown(), (Rows{"  [1]A", "    [2]", "      [1]Busy", "  [1]Busy", "  [1]C"}));
  Command(kArrow, ID_TRANSITION_ADD_MESG);
  Get<Mesg>(101).GetText().SetTexts("Stop", "x > 0", "Run();");
  chart.UpdateNodes(&Get<Transition>(kArrow));
  EXPECT_EQ(Shown(), (Rows{"  [1]A", "    [2]Stop", "      [1]Busy", "      [5]onStop [x > 0]",
                           "  [1]Busy", "  [1]C"}));
}

TEST_F(ObjectTree, ShowsAnOpenedChartAndIsFilledAnewByUndo) {
  Open();
  EXPECT_EQ(Shown(), kAToB);
  tree.Collapse(*tree.FirstItem());
  chart.GetProperties().ModelName = "Other";
  tree.SetRootText("Other");
  chart.GetModel().SelectAll();
  chart.GetModel().DeleteSelected(false);
  chart.TakeSnapshot();
  EXPECT_EQ(TreeRows(tree), Rows{"[0]Other"});
  chart.OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(Shown(), kAToB);
  chart.OnCommand(ID_EDIT_REDO);
  EXPECT_EQ(TreeRows(tree), Rows{"[0]Other"});
}

TEST_F(ObjectTree, PressSelectsTheObjectAlone) {
  Open();
  chart.GetModel().SelectOnly(FindShape(chart, kC));
  const auto pressed = [&](TreeItem* item) {
    tree.OnLButtonDown(item);
    const auto& members = chart.GetSelection().Members();
    EXPECT_EQ(members.size(), 1U);
    return dynamic_cast<const Shape*>(members.front())->GetId();
  };
  EXPECT_EQ(pressed(tree.FirstItem()), kC);
  for (const auto& [text, id] :
       {std::pair{"A", kA}, {"Go", kArrow}, {"B", kB}, {"onGo []", kMesg}}) {
    TreeItem* item = FindRow(tree, text);
    EXPECT_EQ(pressed(item), id) << text;
    EXPECT_EQ(tree.Selected(), item);
  }
  EXPECT_EQ(pressed(nullptr), kMesg);
}

TEST_F(ObjectTree, MenusAreThoseOfChartAndObject) {
  Open();
  OneChoice menu;
  EXPECT_FALSE(tree.OnRButtonDown(nullptr, {1, 1}));
  EXPECT_TRUE(tree.OnRButtonDown(tree.FirstItem(), {300, 200}));
  const std::string chartMenu = menu.first;
  EXPECT_EQ(menu.screen, (POINT{300, 200}));
  menu.choice = ID_STATE_DELETE;
  boxes.Expect("Please confirm deletion", MessageAnswer::Yes);
  EXPECT_TRUE(tree.OnRButtonDown(FindRow(tree, "A"), {5, 6}));
  EXPECT_NE(menu.first, chartMenu);
  EXPECT_EQ(tree.Selected(), nullptr);
  // A transition without a source goes behind, with its message, and also when all is filled anew.
  const Rows sourceless = {"  [1]B", "  [1]C", "  [4]Go", "    [1]B", "    [5]onGo []"};
  EXPECT_EQ(Shown(), sourceless);
  chart.TakeSnapshot();
  chart.OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(Shown(), kAToB);
  chart.OnCommand(ID_EDIT_REDO);
  EXPECT_EQ(Shown(), sourceless);
}

}  // namespace
