#include "model/ConnectableRectShape.h"
#include "platform/PopupMenus.h"
#include "platform/ShellOpen.h"
#include "shell/HelpCommands.h"
#include "tests/support/DialogTest.h"

namespace {

/// Chooses a command in every menu that opens, and keeps what the menu showed.
class ChosenMenus : public PopupMenus {
 public:
  unsigned Track(const std::vector<Item>& items, POINT) override {
    shown = items;
    return choice;
  }
  CommandState StateOf(unsigned id) const {
    const auto item = std::ranges::find(shown, id, &Item::id);
    return item != shown.end() ? item->state : CommandState();
  }

  unsigned choice = 0;
  std::vector<Item> shown;

 private:
  const UseService<PopupMenus> use{*this};
};

class ContextMenu : public DialogTest {
 protected:
  ContextMenu() : DialogTest(SmallChart()), window(*chart) {}

  ChosenMenus menus;
  FakeWindow window;
};

TEST_F(ContextMenu, OfATransitionFollowsItsMessage) {
  auto* transition = Find<Transition>(*chart, 103);
  const auto choose = [&](Shape* shape, unsigned id) {
    menus.choice = id;
    chart->GetModel().ShowObjectMenu(shape, 0, 0);
  };
  const auto expectMessage = [&](bool there) {
    EXPECT_NE(menus.StateOf(ID_TRANSITION_ADD_MESG).enabled, there);
    EXPECT_EQ(menus.StateOf(ID_TRANSITION_ALIGN_MESG).enabled, there);
    EXPECT_EQ(menus.StateOf(ID_TRANSITION_DELETE_MESG).enabled, there);
  };
  choose(transition, ID_TRANSITION_ADD_MESG);
  expectMessage(false);
  Mesg* mesg = transition->GetMesg();
  ASSERT_NE(mesg, nullptr);
  chart->GetModel().SelectOnly(mesg);
  POINT away{40, 20};
  chart->GetSelection().Broadcast(BROADCAST_MOVE, &away, nullptr);
  choose(transition, ID_TRANSITION_ALIGN_MESG);
  expectMessage(true);
  EXPECT_TRUE(mesg->IsAligned());
  choose(mesg, 0);
  EXPECT_FALSE(menus.StateOf(ID_MESG_ALIGN).enabled);

  choose(transition, ID_TRANSITION_DELETE_MESG);
  EXPECT_EQ(transition->GetMesg(), nullptr);
}

/// One object of each kind.
class Deletion : public DialogTest {
 protected:
  Deletion()
      : DialogTest(ChartText(InitialRecord(1, {20, 10, 24, 14}) + LineRecord(2, 0, 0, "0 0 0 0") +
                             TransitionRecord(3, 1, 0) + MesgRecord(4, 3, {30, 10, 40, 16}) +
                             NoteRecord(5, {50, 10, 60, 16}, Block("")))) {}
};

TEST_F(Deletion, EachObjectAsksBeforeItIsDeleted) {
  const std::tuple<int, unsigned, const char*> cases[] = {
      {5, ID_NOTE_DELETE, "Please confirm deletion"},
      {4, ID_MESG_DELETE, "Please confirm deletion"},
      {3, ID_TRANSITION_DELETE, "Please confirm deletion"},
      {2, ID_LINE_DELETE, "line"},
      {1, ID_STATE_DELETE, "Please confirm deletion"}};
  for (const auto& [id, command, question] : cases) {
    for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      boxes.Expect(question, answer);
      Command(id, command);
      EXPECT_EQ(boxes.LastFlags(), 0x114U);
      EXPECT_EQ(FindShape(*chart, id) == nullptr, answer == MessageAnswer::Yes) << id;
    }
  }
}

TEST_F(ContextMenu, OpensWhereThePointerIsAndRunsItsCommand) {
  auto* state = Find<GenericState>(*chart, 102);
  const POINT middle = CentreOf(chart->ToClient(state->GetBounds()));
  menus.choice = ID_SHOW_ANCHORS;
  for (const bool shown : {true, false}) {
    EXPECT_EQ(state->AreAnchorsShown(), shown);
    chart->OnContextMenu(middle);
    EXPECT_EQ(menus.StateOf(ID_SHOW_ANCHORS).checked, shown);
  }
  menus.choice = ID_STATE_DELETE;
  boxes.Expect("Please confirm deletion", MessageAnswer::Yes);
  chart->OnContextMenu(middle);
  EXPECT_EQ(FindShape(*chart, 102), nullptr);
  // Where nothing is, the menu is that of the chart.
  menus.choice = ID_ZOOM_IN;
  chart->OnContextMenu({1100, 850});
  EXPECT_EQ(chart->GetZoom(), LayoutMgr::kNormalZoom + 1);
}

/// A desktop that answers every wish to open something in one way.
class FakeDesktop : public ShellOpen {
 public:
  OpenResult OpenFile(const std::string& path) override { return opened = path, result; }
  OpenResult OpenWeb(const std::string& address) override { return opened = address, result; }

  OpenResult result = OpenResult::Opened;
  std::string opened;

 private:
  const UseService<ShellOpen> use{*this};
};

TEST(HelpCommands, SayWhatCannotBeOpened) {
  constexpr const char* address = "https://morvane.halvern.example";
  const std::tuple<unsigned, OpenResult, const char*, const char*> cases[] = {
      {ID_USER_GUIDE, OpenResult::Opened, "Morvane-UserGuide.pdf", ""},
      {ID_TUTORIAL, OpenResult::Failed, "Morvane-Tutorial.pdf", ""},
      {ID_USER_GUIDE, OpenResult::NotFound, "Morvane-UserGuide.pdf", "Help file not found"},
      {ID_TUTORIAL, OpenResult::NoProgram, "Morvane-Tutorial.pdf", "Please manually open : "},
      {ID_WEB_PAGE, OpenResult::NotFound, address, ""},
      {ID_WEB_PAGE, OpenResult::NoProgram, address, "Please go to web page : "}};
  FakeDesktop desktop;
  ScriptedMessageBoxes boxes;
  for (const auto& [command, result, opened, message] : cases) {
    desktop.result = result;
    if (*message != '\0') boxes.Expect(message);
    EXPECT_TRUE(HelpCommands::Run(command));
    EXPECT_TRUE(desktop.opened.ends_with(opened)) << desktop.opened;
    const bool isTold = result == OpenResult::NoProgram;
    EXPECT_TRUE(!isTold || boxes.Shown().back().ends_with(desktop.opened));
  }
  EXPECT_FALSE(HelpCommands::Run(ID_APP_ABOUT));
}

}  // namespace
