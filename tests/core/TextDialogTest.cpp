#include "dialogs/CEventEditor.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "tests/support/ChartTest.h"

// The editors of the texts, reached as a user reaches them.

namespace {

using Host = ScriptedDialogHost;

constexpr const char* kLinks = "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n";

class TextDialog : public testing::Test {
 protected:
  TextDialog()
      : chart(LoadChart(ChartText(InitialRecord(1, {20, 10, 24, 14}) +
                                  StateRecord(2, {17, 24, 27, 32}, "Idle", "in();") +
                                  TransitionRecord(3, 1, 2, "3 1 1 2", kLinks) +
                                  MesgRecord(4, 3, {30, 10, 40, 16}, "Open") +
                                  NoteRecord(5, {50, 10, 60, 16}, Block("two\r\nlines"))))) {
    chart->SetObjectTree(&browser);
    chart->TakeSnapshot();
  }
  ~TextDialog() override { chart->SetObjectTree(nullptr); }

  void Command(int id, unsigned command) {
    HiddenWindow menu(chart.get());
    menu.SetTarget(FindShape(*chart, id));
    menu.OnCommand(command);
  }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }
  EventEditorBox& Message() { return Find<Mesg>(*chart, 4)->GetText(); }

  NotingBrowser browser;
  std::unique_ptr<LayoutMgr> chart;
  Host host;
  ScriptedMessageBoxes boxes;
};

TEST_F(TextDialog, EventEditorGivesThreeTexts) {
  host.Expect("Edit Event", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(CEventEditor::IDC_EVENT).text, "Open");
    Host::Type(dialog, CEventEditor::IDC_GUARD, "[x]");
    Host::Type(dialog, CEventEditor::IDC_EFFECT, "a();\r\nb();");
    Host::Press(dialog, IDOK);
  });
  Command(4, ID_MESG_EDIT);
  EXPECT_EQ(Message().GetEvent(), "Open");
  EXPECT_EQ(Message().GetGuard(), "[x]");
  EXPECT_EQ(Message().GetEffect(), "a();\r\nb();");
  EXPECT_NE(chart->ModelText().find("Open\n[x]\n10\nTEXTBEGIN\na();\nb();\nTEXTEND\n"),
            std::string::npos);
  EXPECT_EQ(browser.updated, std::vector<int>{3});
  EXPECT_TRUE(CanUndo());
}

TEST_F(TextDialog, EventMustNotBeEmpty) {
  for (const bool updatedAtOnce : {true, false}) {
    Message().SetTexts("", "", "");
    host.Expect("Edit Event", [&](CDialog& dialog) {
      EXPECT_EQ(dialog.Control(CEventEditor::IDC_EVENT).text, "-Edit-");
      if (updatedAtOnce) return Host::Press(dialog, IDOK);
      Host::Type(dialog, CEventEditor::IDC_EVENT, "");
      Host::Type(dialog, CEventEditor::IDC_GUARD, "kept");
      boxes.Expect("Event Cannot Be Empty");
      Host::Press(dialog, IDOK);
      EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_ICONHAND));
      EXPECT_EQ(dialog.Control(CEventEditor::IDC_GUARD).text, "kept");
      Host::Type(dialog, CEventEditor::IDC_EVENT, " ");
      Host::Press(dialog, IDOK);
    });
    EXPECT_TRUE(Message().EditText("ignored"));
    EXPECT_EQ(Message().GetEvent(), updatedAtOnce ? "-Edit-" : " ");
    EXPECT_EQ(Message().GetGuard(), updatedAtOnce ? "" : "kept");
  }
}

TEST_F(TextDialog, CancelKeepsTheMessage) {
  host.Expect("Edit Event", [](CDialog& dialog) {
    Host::Type(dialog, CEventEditor::IDC_EVENT, "Other");
    Host::Press(dialog, IDCANCEL);
  });
  Command(4, ID_MESG_EDIT);
  EXPECT_EQ(Message().GetEvent(), "Open");
  EXPECT_EQ(browser.updated, std::vector<int>{3}) << "the tree is told in both cases";
  EXPECT_FALSE(CanUndo());
}

TEST_F(TextDialog, DoubleClickEditsWithoutASnapshot) {
  host.Expect("Edit Event", [](CDialog& dialog) {
    Host::Type(dialog, CEventEditor::IDC_EVENT, "Other");
    Host::Press(dialog, IDOK);
  });
  chart->OnLButtonDblClk(0, {31 * 6, 11 * 6});
  EXPECT_EQ(Message().GetEvent(), "Other");
  host.Expect("Idle : Entry/Exit Editor", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(EntryExitEditor::IDC_ENTRY).text, "in();");
    Host::Type(dialog, EntryExitEditor::IDC_ENTRY, "");
    Host::Type(dialog, EntryExitEditor::IDC_EXIT, "out();");
    Host::Press(dialog, IDOK);
  });
  chart->OnLButtonDblClk(0, {18 * 6, 26 * 6});
  const EntryExitTextBox& texts = Find<GenericState>(*chart, 2)->GetEntryExit();
  EXPECT_EQ(texts.GetEntry(), "");
  EXPECT_EQ(texts.GetExit(), "out();");
  EXPECT_TRUE(browser.updated.empty());
  EXPECT_FALSE(CanUndo());
  chart->OnLButtonDblClk(0, {51 * 6, 11 * 6});  // a note has none
}

TEST_F(TextDialog, StateMenuEditsTheTexts) {
  host.Expect("Idle : Entry/Exit Editor", [](CDialog& dialog) {
    Host::Type(dialog, EntryExitEditor::IDC_EXIT, "out();");
    Host::Press(dialog, IDOK);
  });
  Command(2, ID_STATE_EDIT_TEXTS);
  EXPECT_EQ(Find<GenericState>(*chart, 2)->GetEntryExit().GetEntry(), "in();");
  EXPECT_TRUE(CanUndo());
}

TEST_F(TextDialog, NoteMayBecomeEmpty) {
  host.Expect("Note Editor", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(EditMesgDlg::IDC_TEXT).text, "two\r\nlines");
    Host::Type(dialog, EditMesgDlg::IDC_TEXT, "");
    Host::Press(dialog, IDOK);
  });
  Command(5, ID_NOTE_EDIT);
  EXPECT_EQ(Find<Note>(*chart, 5)->GetText().GetText(), "");
  host.Expect("Note Editor", [](CDialog& dialog) { Host::Press(dialog, IDCANCEL); });
  Command(5, ID_NOTE_EDIT);
}

}  // namespace
