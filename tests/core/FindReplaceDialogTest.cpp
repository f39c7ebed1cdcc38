#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "tests/support/ChartTest.h"

namespace {

using Dlg = FindReplaceDlg;
using Host = ScriptedDialogHost;
using Rows = std::vector<std::vector<std::string>>;

constexpr const char* kLinks = "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n";

class FindReplaceDialog : public testing::Test {
 protected:
  FindReplaceDialog()
      : chart(LoadChart(ChartText(StateRecord(1, {10, 10, 20, 18}, "Find me", "find aaa") +
                                  StateRecord(2, {30, 10, 40, 18}, "", "nothing") +
                                  InitialRecord(3, {20, 10, 24, 14}) +
                                  TransitionRecord(4, 3, 0, "3 1 0 0", kLinks) +
                                  MesgRecord(5, 4, {50, 10, 60, 16}, "find") +
                                  MesgRecord(6, 0, {50, 20, 60, 26}, "other") +
                                  NoteRecord(7, {50, 30, 60, 36}, Block("find"))))) {
    Find<GenericState>(*chart, 2)->GetEntryExit().SetTexts("", "exit find");
    Find<Mesg>(*chart, 6)->GetText().SetTexts("e", "find", "x find");
    chart->TakeSnapshot();
  }

  /// Opens the dialog as the menu does, and closes it after `script`.
  void Open(const Host::Script& script) {
    host.Expect("Find / Replace", [&script](CDialog& dialog) {
      script(dialog);
      Host::Press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(chart->OnCommand(ID_FIND_REPLACE));
  }
  static void FindText(CDialog& dialog, const std::string& text) {
    Host::Type(dialog, Dlg::IDC_FIND_TEXT, text);
    Host::Press(dialog, Dlg::IDC_FIND);
  }
  static const Rows& Found(const CDialog& dialog) { return dialog.Control(Dlg::IDC_LIST).rows; }
  static std::string Buttons(const CDialog& dialog) {
    return std::string(dialog.Control(Dlg::IDC_REPLACE).enabled ? "R" : "-") +
           (dialog.Control(Dlg::IDC_EDIT).enabled ? "E" : "-");
  }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }

  std::unique_ptr<LayoutMgr> chart;
  Host host;
  ScriptedMessageBoxes boxes;
};

TEST_F(FindReplaceDialog, ListsObjectsInModelOrder) {
  Open([](CDialog& dialog) {
    EXPECT_TRUE(dialog.Control(Dlg::IDC_STATES).checked);
    EXPECT_TRUE(dialog.Control(Dlg::IDC_MESSAGES).checked);
    EXPECT_EQ(Buttons(dialog), "--");
    FindText(dialog, "find");
    EXPECT_EQ(Found(dialog), (Rows{{"State Entry/Exit", "Find me"},
                                   {"State Entry/Exit", ""},
                                   {"Transition Message", "InitialState -> Undefined"},
                                   {"Transition Message", "Undefined -> Undefined"}}));
    FindText(dialog, "Find");
    EXPECT_TRUE(Found(dialog).empty()) << "names and notes are not searched, the case counts";
  });
  EXPECT_FALSE(CanUndo());
}

TEST_F(FindReplaceDialog, LooksWhereItIsTold) {
  Open([](CDialog& dialog) {
    Host::Toggle(dialog, Dlg::IDC_STATES);
    FindText(dialog, "find");
    EXPECT_EQ(Found(dialog).size(), 2U);
    EXPECT_EQ(Found(dialog)[0][0], "Transition Message");
    Host::Toggle(dialog, Dlg::IDC_MESSAGES);
    FindText(dialog, "find");
    EXPECT_TRUE(Found(dialog).empty());
  });
}

TEST_F(FindReplaceDialog, RefusesAnEmptyText) {
  Open([this](CDialog& dialog) {
    FindText(dialog, "find");
    Host::SelectRows(dialog, Dlg::IDC_LIST, {0});
    Host::Type(dialog, Dlg::IDC_FIND_TEXT, "");
    boxes.Expect("Please enter a search string");
    Host::Press(dialog, Dlg::IDC_REPLACE);
    EXPECT_EQ(boxes.LastFlags(), static_cast<unsigned>(MB_ICONHAND));
    EXPECT_EQ(Found(dialog).size(), 4U);
    boxes.Expect("Please enter a search string");
    Host::Press(dialog, Dlg::IDC_FIND);
    EXPECT_TRUE(Found(dialog).empty());
  });
}

TEST_F(FindReplaceDialog, ButtonsFollowTheSelection) {
  Open([](CDialog& dialog) {
    FindText(dialog, "find");
    const struct {
      std::vector<int> rows;
      const char* buttons;
    } cases[] = {{{0}, "RE"}, {{0, 2}, "R-"}, {{}, "--"}, {{3}, "RE"}};
    for (const auto& c : cases) {
      Host::SelectRows(dialog, Dlg::IDC_LIST, c.rows);
      EXPECT_EQ(Buttons(dialog), c.buttons);
    }
    FindText(dialog, "find");
    EXPECT_EQ(Buttons(dialog), "RE") << "until the next click in the list";
    Host::Press(dialog, Dlg::IDC_REPLACE);
    Host::Press(dialog, Dlg::IDC_EDIT);
    EXPECT_EQ(Found(dialog).size(), 4U);
  });
}

TEST_F(FindReplaceDialog, ReplacesInSelectedRowsAndSearchesAgain) {
  Open([this](CDialog& dialog) {
    FindText(dialog, "find");
    Host::SelectRows(dialog, Dlg::IDC_LIST, {1, 3});
    Host::Type(dialog, Dlg::IDC_REPLACE_TEXT, "found");
    Host::Press(dialog, Dlg::IDC_REPLACE);
    EXPECT_EQ(Found(dialog).size(), 2U);
    EXPECT_TRUE(dialog.Control(Dlg::IDC_LIST).selectedRows.empty());
    const EventEditorBox& text = Find<Mesg>(*chart, 6)->GetText();
    EXPECT_EQ(text.GetGuard() + "|" + text.GetEffect(), "found|x found");
    EXPECT_EQ(Find<GenericState>(*chart, 2)->GetEntryExit().GetExit(), "exit found");
  });
  EXPECT_TRUE(CanUndo());
}

TEST_F(FindReplaceDialog, NewTextIsNotSearchedAgain) {
  const struct {
    const char* find;
    const char* replace;
    const char* entry;
    std::size_t rows;
  } cases[] = {{"aa", "b", "find ba", 0}, {"a", "aa", "find baa", 1}, {"a", "", "find b", 0}};
  Open([&](CDialog& dialog) {
    for (const auto& c : cases) {
      FindText(dialog, c.find);
      Host::SelectRows(dialog, Dlg::IDC_LIST, {0});
      Host::Type(dialog, Dlg::IDC_REPLACE_TEXT, c.replace);
      Host::Press(dialog, Dlg::IDC_REPLACE);
      EXPECT_EQ(Find<GenericState>(*chart, 1)->GetEntryExit().GetEntry(), c.entry);
      EXPECT_EQ(Found(dialog).size(), c.rows);
    }
  });
}

TEST_F(FindReplaceDialog, EditOpensTheObjectsEditorAndKeepsTheRow) {
  Open([this](CDialog& dialog) {
    FindText(dialog, "find");
    Host::SelectRows(dialog, Dlg::IDC_LIST, {0});
    host.Expect("Find me : Entry/Exit Editor", [](CDialog& editor) {
      Host::Type(editor, EntryExitEditor::IDC_ENTRY, "gone");
      Host::Press(editor, IDOK);
    });
    Host::Press(dialog, Dlg::IDC_EDIT);
    EXPECT_EQ(Found(dialog).size(), 4U);
    Host::SelectRows(dialog, Dlg::IDC_LIST, {2});
    host.Expect("Edit Event", [](CDialog& editor) { Host::Press(editor, IDCANCEL); });
    Host::Press(dialog, Dlg::IDC_EDIT);
  });
  EXPECT_EQ(Find<GenericState>(*chart, 1)->GetEntryExit().GetEntry(), "gone");
  EXPECT_TRUE(CanUndo());
}

}  // namespace
