#include "dialogs/StatePropDlg.h"
#include "persistence/ModelStream.h"
#include "platform/PopupMenus.h"
#include "shell/CObjectTree.h"
#include "tests/support/ChartTest.h"
#include "tests/support/TreeRows.h"

namespace {

using Rows = std::vector<std::string>;
using Host = ScriptedDialogHost;

constexpr int kA = 1;
constexpr int kB = 2;
constexpr int kC = 3;
constexpr int kArrow = 4;
constexpr int kMesg = 5;
const std::string kLinks = "2 20 14 21 14 \n1 21 14 59 14 \n3 59 14 60 14 \n";

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

  /// Opens a chart as its window does.
  void Open(const std::string& records) {
    std::istringstream in(ChartText(records));
    ModelStream stream(in);
    stream >> chart;
    chart.OnInitialUpdate();
  }
  /// Three states; a message on the way from the first to the second.
  void OpenStates(int source = kA, int target = kB) {
    Open(StateRecord(kA, {10, 10, 20, 18}, "A") +
         MesgRecord(kMesg, kArrow, {30, 10, 40, 16}, "Go") +
         TransitionRecord(kArrow, source, target, "2 2 4 2", kLinks) +
         NoteRecord(9, {80, 80, 90, 86}, Block("n")) + StateRecord(kB, {60, 10, 70, 18}, "B") +
         StateRecord(kC, {60, 40, 70, 48}, "C"));
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
  Rows Shown() const { return TreeRows(tree); }
  Rows Selection() const {
    Rows ids;
    for (const Collectable* member : chart.GetSelection().Members()) {
      ids.push_back(std::to_string(dynamic_cast<const Shape*>(member)->GetId()));
    }
    return ids;
  }

  CObjectTree tree;
  LayoutMgr chart;
  ScriptedMessageBoxes boxes;
  Host host;
};

const Rows kAToB = {"+[0]Untitled",     "  [1]A", "    [2]Go", "      [1]B",
                    "      [5]onGo []", "  [1]B", "  [1]C"};

TEST_F(ObjectTree, NewChartOpensItsRootWithTheFirstObject) {
  chart.OnInitialUpdate();
  EXPECT_EQ(Shown(), Rows{"[0]Untitled"});
  POINT place{60, 60};
  chart.GetModel().InsertNote(place);
  EXPECT_EQ(Shown(), Rows{"[0]Untitled"});
  chart.GetModel().InsertInitialState(place);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [6]InitialState"}));
  tree.Collapse(*tree.FirstItem());
  chart.GetModel().InsertFinalState(place);
  chart.GetModel().InsertTransition(place);
  EXPECT_EQ(Shown(), (Rows{"[0]Untitled", "  [6]InitialState", "  [7]FinalState", "  [4]"}));
}

TEST_F(ObjectTree, ConnectionsStandBelowTheRootNodeOfTheirSource) {
  OpenStates();
  const AnchorKey left{2, SIDE_LEFT};
  const AnchorKey top{2, SIDE_TOP};
  ModelMgr& model = chart.GetModel();
  model.ConnectAnchors(&Get<GenericState>(kB), &Get<GenericState>(kC), &left, &top, nullptr);
  model.ConnectAnchors(&Get<GenericState>(kB), &Get<GenericState>(kB), &left, &top, nullptr);
  const POINT drop{600, 600};
  model.ConnectAnchors(&Get<GenericState>(kC), nullptr, &left, &top, &drop);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "    [2]Go", "      [1]B", "      [5]onGo []",
                           "  [1]B", "    [2]", "      [1]C", "    [3]", "  [1]C", "    [4]"}));
}

TEST_F(ObjectTree, FollowsTheEndsOfATransition) {
  OpenStates();
  Transition& arrow = Get<Transition>(kArrow);
  arrow.AttachSource(&Get<GenericState>(kC), {2, SIDE_LEFT});
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "  [1]B", "  [1]C", "    [2]Go", "      [1]B",
                           "      [5]onGo []"}));
  arrow.AttachTarget(&Get<GenericState>(kC), {2, SIDE_TOP});
  EXPECT_EQ(Shown(),
            (Rows{"+[0]Untitled", "  [1]A", "  [1]B", "  [1]C", "    [3]Go", "      [5]onGo []"}));
  arrow.MoveTargetFree(400, 400);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "  [1]B", "  [1]C", "    [4]Go"}));
  Delete(kC);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "  [1]B", "  [4]Go"}));
  Delete(kArrow);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "  [1]B"}));
}

TEST_F(ObjectTree, DeletedTargetGoesEverywhere) {
  OpenStates();
  Delete(kB);
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "    [4]Go", "  [1]C"}));
  EXPECT_TRUE(tree.FindItems(FindShape(chart, kMesg)).empty());
}

TEST_F(ObjectTree, FollowsNamesAndMessages) {
  OpenStates();
  host.Expect("State Properties", [](CDialog& dialog) {
    Host::Type(dialog, StatePropDlg::IDC_NAME, "Busy");
    Host::Press(dialog, IDOK);
  });
  Command(kB, ID_OBJECT_PROPERTIES);
  Delete(kMesg);
  EXPECT_EQ(Shown(),
            (Rows{"+[0]Untitled", "  [1]A", "    [2]", "      [1]Busy", "  [1]Busy", "  [1]C"}));
  Command(kArrow, ID_TRANSITION_ADD_MESG);
  Get<Mesg>(101).GetText().SetTexts("Stop", "x > 0", "Run();");
  chart.UpdateNodes(&Get<Transition>(kArrow));
  EXPECT_EQ(Shown(), (Rows{"+[0]Untitled", "  [1]A", "    [2]Stop", "      [1]Busy",
                           "      [5]onStop [x > 0]", "  [1]Busy", "  [1]C"}));
  tree.SetRootText("Lift");
  EXPECT_EQ(Shown().front(), "+[0]Lift");
}

TEST_F(ObjectTree, ShowsAnOpenedChartAndIsFilledAnewByUndo) {
  OpenStates();
  EXPECT_EQ(Shown(), kAToB);
  tree.Collapse(*tree.FirstItem());
  chart.GetProperties().ModelName = "Other";
  tree.SetRootText("Other");
  chart.GetModel().SelectAll();
  chart.GetModel().DeleteSelected(false);
  chart.TakeSnapshot();
  EXPECT_EQ(Shown(), Rows{"[0]Other"});
  chart.OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(Shown(), kAToB);
  chart.OnCommand(ID_EDIT_REDO);
  EXPECT_EQ(Shown().size(), 1U);
}

/// What hears of a whole model at once shows the same as what hears of each step.
TEST_F(ObjectTree, SourcelessTransitionsGoBehindWithTheirMessage) {
  OpenStates(0, kB);
  Rows expected = {"+[0]Untitled", "  [1]A",   "  [1]B",        "  [1]C",
                   "  [4]Go",      "    [1]B", "    [5]onGo []"};
  EXPECT_EQ(Shown(), expected);
  chart.UpdateNodes(&Get<Transition>(kArrow));
  EXPECT_EQ(Shown(), expected);
  POINT place{60, 60};
  chart.GetModel().InsertTransition(place);
  chart.UpdateNodes(&Get<Transition>(kArrow));
  expected.insert(expected.begin() + 4, "  [4]");
  EXPECT_EQ(Shown(), expected);
}

TEST_F(ObjectTree, PressSelectsTheObjectAlone) {
  OpenStates();
  chart.GetModel().SelectOnly(FindShape(chart, kC));
  tree.OnLButtonDown(tree.FirstItem());
  EXPECT_EQ(Selection(), Rows{std::to_string(kC)});
  for (const auto& [text, id] : std::vector<std::pair<std::string, int>>{
           {"A", kA}, {"Go", kArrow}, {"B", kB}, {"onGo []", kMesg}}) {
    TreeItem* item = FindRow(tree, text);
    tree.OnLButtonDown(item);
    EXPECT_EQ(tree.Selected(), item);
    EXPECT_EQ(Selection(), Rows{std::to_string(id)}) << text;
  }
  tree.OnLButtonDown(nullptr);
  EXPECT_EQ(Selection(), Rows{std::to_string(kMesg)});
}

TEST_F(ObjectTree, MenusAreThoseOfChartAndObject) {
  OpenStates();
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
  EXPECT_EQ(Shown(),
            (Rows{"+[0]Untitled", "  [1]B", "  [1]C", "  [4]Go", "    [1]B", "    [5]onGo []"}));
}

}  // namespace
