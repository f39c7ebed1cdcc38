#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

/// A chart in which a text is edited where it stands.
class InPlace : public testing::Test {
 protected:
  static constexpr std::int32_t kZoom = 6;

  void SetUp() override { chart->TakeSnapshot(); }
  void Select(int id) { chart->GetModel().SelectOnly(FindShape(*chart, id)); }
  void Return(unsigned flags = 0) { chart->OnKeyDown(VirtualKey::Return, flags); }
  void Undo() { chart->OnCommand(ID_EDIT_UNDO); }
  std::string NameOf(int id) const { return Find<GenericState>(*chart, id)->GetName(); }

  std::unique_ptr<LayoutMgr> chart = LoadChart(
      ChartText(StateRecord(1, {10, 4, 34, 14}, "Idle") + StateRecord(2, {10, 24, 34, 34}, "Busy") +
                TransitionRecord(3, 1, 2) + MesgRecord(4, 3, {40, 16, 50, 22}, "go") +
                NoteRecord(5, {60, 10, 80, 20}, Block("a\r\nb"))));
  FakeWindow window{*chart};
};

TEST_F(InPlace, TakesOverWhatWasTypedAsOneStep) {
  struct Case {
    int selected;
    const char* shown;
    const char* typed;
  };
  // A transition hands its message's event.
  for (const Case& each : {Case{1, "Idle", "Off"}, Case{4, "go", "stop"}, Case{3, "go", "halt"},
                           Case{5, "a\r\nb", "c\r\nd\r\ne"}}) {
    Select(each.selected);
    const std::string before = chart->ModelText();
    for (const bool keep : {false, true}) {
      Return();
      ASSERT_TRUE(window.box) << each.selected;
      EXPECT_EQ(window.box->text, each.shown);
      EXPECT_EQ(window.box->severalLines, each.selected == 5);
      window.box->text = each.typed;
      EXPECT_EQ(chart->ModelText(), before) << "while it is typed";
      chart->OnTextBoxLeft(keep);
      EXPECT_FALSE(window.box);
      EXPECT_EQ(chart->ModelText() != before, keep);
    }
    Undo();
    EXPECT_EQ(chart->ModelText(), before);
  }
}

TEST_F(InPlace, StandsWhereTheTextIsAlsoWhenTheChartScrolls) {
  Select(2);
  Return();
  const RECT state = chart->ToClient(FindShape(*chart, 2)->GetBounds());
  EXPECT_EQ(TopLeft(window.box->client), TopLeft(state));
  EXPECT_EQ(window.box->client.right, state.right - 2);
  EXPECT_LT(window.box->client.bottom, state.bottom - 20);
  const RECT first = window.box->client;
  ASSERT_TRUE(chart->OnScrollBy({60, 30}));
  EXPECT_EQ(window.box->client, first - POINT(60, 30));
}

TEST_F(InPlace, EndsBeforeAnythingElseIsDone) {
  const std::function<void()> ends[] = {
      [this] { chart->OnCommand(ID_EDIT_SELECT_ALL); },
      [this] {
        chart->OnLButtonDown(MK_LBUTTON, {900, 700});
      },
      [this] { chart->OnZoom(1, {}); },
      [this] {
        chart->OnContextMenu({900, 700});
      },
      [this] { chart->OnDeactivate(); },
      [this] { chart->FinishTyping(); },
  };
  int count = 0;
  for (const auto& end : ends) {
    Select(1);
    Return();
    const std::string typed = "Name" + std::to_string(++count);
    window.box->text = typed;
    window.Release({900, 700});
    end();
    EXPECT_FALSE(window.box);
    EXPECT_NE(chart->ModelText().find(typed), std::string::npos) << count;
  }
  Select(1);
  Return();
  window.box->text = "Last";
  std::string reason;
  EXPECT_TRUE(chart->ReplaceText(chart->EmptyText(), reason)) << "a step of its own";
  Undo();
  EXPECT_EQ(NameOf(1), "Last");
}

TEST_F(InPlace, OpensAtADoubleClickOnANameOrANoteOnly) {
  const auto click = [this](POINT model) {
    chart->OnLButtonDblClk(MK_LBUTTON, {model.x * kZoom, model.y * kZoom});
  };
  click({20, 5});
  ASSERT_TRUE(window.box);
  chart->OnTextBoxLeft(false);
  click({20, 12});
  EXPECT_FALSE(window.box) << "entry and exit have a dialog";
  delete FindShape(*chart, 4);
  click({22, 19});
  ASSERT_TRUE(window.box) << "a transition gets its message";
  chart->OnTextBoxLeft(false);
  click({70, 15});
  ASSERT_TRUE(window.box);
  EXPECT_EQ(window.box->text, "a\r\nb");
}

TEST_F(InPlace, GivesATransitionItsMessageWithTheFirstLetter) {
  delete FindShape(*chart, 4);
  chart->TakeSnapshot();
  Select(3);
  const std::string before = chart->ModelText();
  for (const bool keep : {false, true}) {
    Return();
    ASSERT_TRUE(window.box);
    window.box->text = "go";
    chart->OnTextBoxLeft(keep);
    EXPECT_EQ(chart->ModelText() != before, keep);
  }
  const Mesg* made = Find<Transition>(*chart, 3)->GetMesg();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetText().GetEvent(), "go");
  EXPECT_TRUE(made->IsAligned());
  Undo();
  EXPECT_EQ(chart->ModelText(), before);
}

TEST_F(InPlace, RefusesAnEmptyEventAndNamesANamelessState) {
  ScriptedMessageBoxes boxes;
  Select(4);
  Return();
  window.box->text.clear();
  boxes.Expect("Event Cannot Be Empty");
  chart->OnTextBoxLeft(true);
  EXPECT_EQ(Find<Mesg>(*chart, 4)->GetText().GetEvent(), "go");
  Select(1);
  Return();
  window.box->text.clear();
  chart->OnTextBoxLeft(true);
  EXPECT_EQ(NameOf(1), "State");
}

TEST_F(InPlace, LosesNothingWhenTheShapeOrTheWindowGoes) {
  Select(1);
  Return();
  window.box->text = "Gone";
  delete FindShape(*chart, 1);
  chart->OnTextBoxLeft(true);
  EXPECT_EQ(chart->ModelText().find("Gone"), std::string::npos);
  Select(2);
  Return();
  const std::string before = chart->ModelText();
  window.box.reset();
  chart->FinishTyping();
  EXPECT_EQ(chart->ModelText(), before);
}

}  // namespace

}  // namespace morvane
