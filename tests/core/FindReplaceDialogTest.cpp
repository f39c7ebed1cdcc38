#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "tests/support/DialogTest.h"

namespace {

using Dlg = FindReplaceDlg;
using Rows = std::vector<std::vector<std::string>>;

class FindReplaceDialog : public DialogTest {
 protected:
  FindReplaceDialog()
      : DialogTest(ChartText(
            StateRecord(1, {10, 10, 20, 18}, "Find me", "find aaa") +
            StateRecord(2, {30, 10, 40, 18}, "", "nothing") + InitialRecord(3, {20, 10, 24, 14}) +
            TransitionRecord(4, 3, 0, "3 1 0 0") + MesgRecord(5, 4, {50, 10, 60, 16}, "find") +
            MesgRecord(6, 0, {50, 20, 60, 26}, "other") +
            NoteRecord(7, {50, 30, 60, 36}, Block("find")))) {
    Find<GenericState>(*chart, 2)->GetEntryExit().SetTexts("", "exit find");
    Find<Mesg>(*chart, 6)->GetText().SetTexts("e", "find", "x find");
  }

  /// Opens the dialog as the menu does, finds "find", and closes it after `script`.
  void Open(const Host::Script& script) {
    host.Expect("Find / Replace", [&script](CDialog& dialog) {
      EXPECT_EQ(Buttons(dialog), "--");
      FindText(dialog, "find");
      script(dialog);
      Host::Press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(chart->OnCommand(ID_FIND_REPLACE));
  }
  static void FindText(CDialog& dialog, const std::string& text) {
    Host::Type(dialog, Dlg::IDC_FIND_TEXT, text);
    Host::Press(dialog, Dlg::IDC_FIND);
  }
  static void Select(CDialog& dialog, const std::vector<int>& rows) {
    Host::SelectRows(dialog, Dlg::IDC_LIST, rows);
  }
  static void Replace(CDialog& dialog, const std::string& text) {
    Host::Type(dialog, Dlg::IDC_REPLACE_TEXT, text);
    Host::Press(dialog, Dlg::IDC_REPLACE);
  }
  static const Rows& Found(const CDialog& dialog) { return dialog.Control(Dlg::IDC_LIST).rows; }
  static std::string Buttons(const CDialog& dialog) {
    return std::string(dialog.Control(Dlg::IDC_REPLACE).enabled ? "R" : "-") +
           (dialog.Control(Dlg::IDC_EDIT).enabled ? "E" : "-");
  }
  const EntryExitTextBox& State(int id) const {
    return Find<GenericState>(*chart, id)->GetEntryExit();
  }
};

TEST_F(FindReplaceDialog, ListsObjectsInModelOrderWhereItIsToldToLook) {
  const Rows all = {{"State Entry/Exit", "Find me"},
                    {"State Entry/Exit", ""},
                    {"Transition Message", "InitialState -> Undefined"},
                    {"Transition Message", "Undefined -> Undefined"}};
  // Names and notes are not searched, and the case counts.
  const std::tuple<int, const char*, int, int> cases[] = {{Dlg::IDC_STATES, "find", 2, 4},
                                                          {Dlg::IDC_MESSAGES, "find", 0, 0},
                                                          {Dlg::IDC_STATES, "find", 0, 2},
                                                          {Dlg::IDC_MESSAGES, "Find", 0, 0}};
  Open([&](CDialog& dialog) {
    EXPECT_EQ(Found(dialog), all);
    for (const auto& [toggled, text, first, end] : cases) {
      Host::Toggle(dialog, toggled);
      FindText(dialog, text);
      EXPECT_EQ(Found(dialog), Rows(all.begin() + first, all.begin() + end));
    }
    FindText(dialog, "find");
    Select(dialog, {0});
    Host::Type(dialog, Dlg::IDC_FIND_TEXT, "");
    for (const int button : {Dlg::IDC_REPLACE, Dlg::IDC_FIND}) {
      EXPECT_EQ(Found(dialog), all);
      boxes.Expect("Please enter a search string");
      Host::Press(dialog, button);
      EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_ICONHAND));
    }
    EXPECT_TRUE(Found(dialog).empty());
  });
  EXPECT_FALSE(CanUndo());
}

TEST_F(FindReplaceDialog, ButtonsFollowTheSelection) {
  Open([](CDialog& dialog) {
    const std::pair<std::vector<int>, const char*> cases[] = {
        {{0}, "RE"}, {{0, 2}, "R-"}, {{}, "--"}, {{3}, "RE"}};
    for (const auto& [rows, buttons] : cases) {
      Select(dialog, rows);
      EXPECT_EQ(Buttons(dialog), buttons);
    }
    FindText(dialog, "find");
    EXPECT_EQ(Buttons(dialog), "RE") << "until the next click in the list";
    for (const int button : {Dlg::IDC_REPLACE, Dlg::IDC_EDIT}) Host::Press(dialog, button);
    EXPECT_EQ(Found(dialog).size(), 4U);
  });
}

TEST_F(FindReplaceDialog, ReplacesInSelectedRowsAndSearchesAgain) {
  const std::tuple<const char*, const char*, const char*, std::size_t> cases[] = {
      {"aa", "b", "find ba", 0}, {"a", "aa", "find baa", 1}, {"a", "", "find b", 0}};
  Open([&](CDialog& dialog) {
    Select(dialog, {1, 3});
    Replace(dialog, "found");
    EXPECT_EQ(Found(dialog).size(), 2U);
    EXPECT_TRUE(dialog.Control(Dlg::IDC_LIST).selectedRows.empty());
    const EventEditorBox& text = Find<Mesg>(*chart, 6)->GetText();
    EXPECT_EQ(text.GetGuard() + "|" + text.GetEffect(), "found|x found");
    EXPECT_EQ(State(2).GetExit(), "exit found");
    for (const auto& [old, replacement, entry, rows] : cases) {
      FindText(dialog, old);
      Select(dialog, {0});
      Replace(dialog, replacement);
      EXPECT_EQ(State(1).GetEntry(), entry);
      EXPECT_EQ(Found(dialog).size(), rows);
    }
  });
  EXPECT_TRUE(CanUndo());
}

TEST_F(FindReplaceDialog, EditOpensTheObjectsEditorAndKeepsTheRow) {
  Open([this](CDialog& dialog) {
    Select(dialog, {0});
    host.Expect("Find me : Entry/Exit Editor", Typing({{EntryExitEditor::IDC_ENTRY, "gone"}}));
    Host::Press(dialog, Dlg::IDC_EDIT);
    EXPECT_EQ(Found(dialog).size(), 4U);
    Select(dialog, {2});
    host.Expect("Edit Event", Typing({}, IDCANCEL));
    Host::Press(dialog, Dlg::IDC_EDIT);
  });
  EXPECT_EQ(State(1).GetEntry(), "gone");
  EXPECT_TRUE(CanUndo());
}

}  // namespace
