#include "dialogs/CDefaultSettingDlg.h"
#include "dialogs/CEventEditor.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/StatePropDlg.h"
#include "tests/support/DialogTest.h"

// The properties and the texts of the objects, from the command of a user to the model text.

namespace {

constexpr int kState = 2;
constexpr int kTransition = 3;
constexpr int kMesg = 4;
constexpr int kNote = 5;
constexpr int kLine = 6;

constexpr const char* kStateEditor = "Idle : Entry/Exit Editor";

/// A chart from a damaged file: some values are none that the dialogs give.
std::string Chart() {
  std::string line = LineRecord(kLine, 0, 0, "0 0 0 0");
  line.replace(line.rfind("0 0"), 3, "16 -1");
  std::string state = StateRecord(kState, {17, 24, 27, 32}, "Idle", "in();");
  state.replace(state.find("Idle\n0"), 6, "Idle\n7");
  return ChartText(InitialRecord(1, {20, 10, 24, 14}) + state +
                   TransitionRecord(kTransition, 1, kState) +
                   MesgRecord(kMesg, kTransition, {30, 10, 40, 16}, "Open") +
                   NoteRecord(kNote, {50, 10, 60, 16}, Block("two\r\nlines")) + line);
}

class ObjectDialog : public DialogTest {
 protected:
  ObjectDialog() : DialogTest(Chart()) {}

  /// Opens the properties of an object and closes them after `script`, with Cancel at first.
  void Properties(int id, const char* caption, const Host::Script& script) {
    const std::string before = chart->ModelText();
    for (const int button : {IDCANCEL, IDOK}) {
      EXPECT_EQ(chart->ModelText(), before);
      host.Expect(caption, [&](CDialog& dialog) {
        script(dialog);
        Host::Press(dialog, button);
      });
      Command(id, ID_OBJECT_PROPERTIES);
      EXPECT_EQ(CanUndo(), button == IDOK);
      EXPECT_EQ(browser.updated.size(), button == IDOK && id == kState ? 1U : 0U);
    }
  }
  EventEditorBox& Message() { return Find<Mesg>(*chart, kMesg)->GetText(); }
};

TEST_F(ObjectDialog, StateTakesItsProperties) {
  Properties(kState, "State Properties", [this](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(StatePropDlg::IDC_NAME).text, "Idle");
    Host::Type(dialog, StatePropDlg::IDC_NAME, "Busy");
    EXPECT_TRUE(dialog.Control(StatePropDlg::IDC_HISTORY).checked);
    dialogs.ExpectColor(0xBFFFFF, 0x123456);
    Host::Press(dialog, StatePropDlg::IDC_BG_COLOR);
    Host::Toggle(dialog, StatePropDlg::IDC_TRANSPARENT);
    EXPECT_FALSE(dialog.Control(StatePropDlg::IDC_BG_COLOR).enabled);
  });
  EXPECT_TRUE(Holds("\nBusy\n7 1193046 1\n"));
  // Whatever the default of the name is.
  CDefaultSettingDlg::Instance().StateName = "Fresh";
  host.Expect("State Properties", [](CDialog& dialog) {
    Host::Toggle(dialog, StatePropDlg::IDC_HISTORY);
    Typing({{StatePropDlg::IDC_NAME, ""}})(dialog);
  });
  Command(kState, ID_OBJECT_PROPERTIES);
  CDefaultSettingDlg::Instance().LoadSettings();
  EXPECT_TRUE(Holds("\nState\n0 1193046 1\n"));
}

TEST_F(ObjectDialog, MessageTakesItsProperties) {
  Properties(kMesg, "Message properties", [this](CDialog& dialog) {
    for (const int id : {MesgPropDlg::IDC_BG_COLOR, MesgPropDlg::IDC_BORDER_COLOR}) {
      EXPECT_FALSE(dialog.Control(id).enabled);
    }
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_HIDDEN).checked);
    Host::Toggle(dialog, MesgPropDlg::IDC_NO_BORDER);
    dialogs.ExpectColor(0x00FF00, 0x0000FF);
    Host::Press(dialog, MesgPropDlg::IDC_BORDER_COLOR);
    Host::Toggle(dialog, MesgPropDlg::IDC_TRANSPARENT);
    dialogs.ExpectColor(0xFFFFFF, std::nullopt);
    Host::Press(dialog, MesgPropDlg::IDC_BG_COLOR);
    Host::Toggle(dialog, MesgPropDlg::IDC_HIDDEN);
  });
  EXPECT_TRUE(Holds("30 10 40 16\n0\n0 0 16777215 255\n"));
}

TEST_F(ObjectDialog, BorderOfANoteStays) {
  Properties(kNote, "Note Properties", [this](CDialog& dialog) {
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_NO_BORDER).enabled);
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_NO_BORDER).checked);
    dialogs.ExpectColor(0x000080, 0x000000);
    Host::Press(dialog, MesgPropDlg::IDC_BORDER_COLOR);
    Host::Toggle(dialog, MesgPropDlg::IDC_HIDDEN);
    Host::Toggle(dialog, MesgPropDlg::IDC_TRANSPARENT);
  });
  EXPECT_TRUE(Holds("50 10 60 16\n0\n1 0 8454143 0\n"));
}

TEST_F(ObjectDialog, LineTakesIndicesAndKeepsUnknownOnes) {
  const struct {
    int box;
    int count;
    const char* record;
  } cases[] = {{CLineProperty::IDC_STYLE, 5, "0 0 0 0\n16 4\n"},
               {CLineProperty::IDC_COLOR, 16, "0 0 0 0\n4 4\n"}};
  for (const auto& c : cases) {
    host.Expect("Line Properties", [&c](CDialog& dialog) {
      EXPECT_EQ(dialog.Control(c.box).itemCount, c.count);
      EXPECT_EQ(dialog.Control(c.box).selection, DialogControl::kNoItem);
      Host::Choose(dialog, c.box, 4);
      Host::Press(dialog, IDOK);
    });
    Command(kLine, ID_OBJECT_PROPERTIES);
    EXPECT_TRUE(Holds(c.record));
  }
}

TEST_F(ObjectDialog, EventEditorGivesThreeTexts) {
  host.Expect("Edit Event", Typing({{CEventEditor::IDC_EVENT, "Other"}}, IDCANCEL));
  Command(kMesg, ID_MESG_EDIT);
  EXPECT_FALSE(CanUndo());
  host.Expect("Edit Event", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(CEventEditor::IDC_EVENT).text, "Open");
    Typing({{CEventEditor::IDC_GUARD, "[x]"}, {CEventEditor::IDC_EFFECT, "a();\r\nb();"}})(dialog);
  });
  Command(kMesg, ID_MESG_EDIT);
  EXPECT_TRUE(Holds("Open\n[x]\n10\nTEXTBEGIN\na();\nb();\nTEXTEND\n"));
  EXPECT_EQ(browser.updated, (std::vector<int>{kTransition, kTransition})) << "Cancel tells it too";
  EXPECT_TRUE(CanUndo());
}

TEST_F(ObjectDialog, EventMustNotBeEmpty) {
  Message().SetTexts("", "", "");
  host.Expect("Edit Event", Typing({}));
  Command(kMesg, ID_MESG_EDIT);
  EXPECT_EQ(Message().GetEvent(), "-Edit-");
  host.Expect("Edit Event", [this](CDialog& dialog) {
    Host::Type(dialog, CEventEditor::IDC_EVENT, "");
    Host::Type(dialog, CEventEditor::IDC_GUARD, "kept");
    boxes.Expect("Event Cannot Be Empty");
    Host::Press(dialog, IDOK);
    EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_ICONHAND));
    Typing({{CEventEditor::IDC_EVENT, " "}})(dialog);
  });
  Command(kMesg, ID_MESG_EDIT);
  EXPECT_EQ(Message().GetEvent(), " ");
  EXPECT_EQ(Message().GetGuard(), "kept");
}

TEST_F(ObjectDialog, DoubleClickEditsWithoutASnapshot) {
  host.Expect("Edit Event", Typing({{CEventEditor::IDC_EVENT, "Other"}}));
  chart->OnLButtonDblClk(0, {31 * 6, 11 * 6});
  EXPECT_EQ(Message().GetEvent(), "Other");
  host.Expect(kStateEditor, [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(EntryExitEditor::IDC_ENTRY).text, "in();");
    Typing({{EntryExitEditor::IDC_ENTRY, ""}, {EntryExitEditor::IDC_EXIT, "out();"}})(dialog);
  });
  chart->OnLButtonDblClk(0, {18 * 6, 26 * 6});
  const EntryExitTextBox& texts = Find<GenericState>(*chart, kState)->GetEntryExit();
  EXPECT_EQ(texts.GetEntry() + "|" + texts.GetExit(), "|out();");
  chart->OnLButtonDblClk(0, {51 * 6, 11 * 6});  // a note has none
  EXPECT_TRUE(browser.updated.empty());
  EXPECT_FALSE(CanUndo());
  // Its menu does it with one.
  host.Expect(kStateEditor, Typing({{EntryExitEditor::IDC_ENTRY, "in();"}}));
  Command(kState, ID_STATE_EDIT_TEXTS);
  EXPECT_EQ(texts.GetEntry() + "|" + texts.GetExit(), "in();|out();");
  EXPECT_TRUE(CanUndo());
}

TEST_F(ObjectDialog, NoteMayBecomeEmpty) {
  for (const int button : {IDCANCEL, IDOK}) {
    EXPECT_EQ(Find<Note>(*chart, kNote)->GetText().GetText(), "two\r\nlines");
    host.Expect("Note Editor", [button](CDialog& dialog) {
      EXPECT_EQ(dialog.Control(EditMesgDlg::IDC_TEXT).text, "two\r\nlines");
      Typing({{EditMesgDlg::IDC_TEXT, ""}}, button)(dialog);
    });
    Command(kNote, ID_NOTE_EDIT);
  }
  EXPECT_EQ(Find<Note>(*chart, kNote)->GetText().GetText(), "");
}

}  // namespace
