#include "dialogs/CDefaultSettingDlg.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/StatePropDlg.h"
#include "tests/support/ChartTest.h"

// The properties of the objects, from the command of the context menu to the model text.

namespace {

using Host = ScriptedDialogHost;

constexpr int kState = 1;
constexpr int kMesg = 3;
constexpr int kNote = 4;
constexpr int kLine = 5;

class ObjectDialog : public testing::Test {
 protected:
  ObjectDialog()
      : chart(LoadChart(ChartText(StateRecord(kState, {10, 10, 20, 18}, "Idle") +
                                  MesgRecord(kMesg, 0, {30, 10, 40, 16}) +
                                  NoteRecord(kNote, {50, 10, 60, 16}, Block("n")) +
                                  LineRecord(kLine, 0, 0, "0 0 0 0")))) {
    chart->TakeSnapshot();
    chart->SetObjectTree(&browser);
  }
  ~ObjectDialog() override { chart->SetObjectTree(nullptr); }

  void Properties(int id) {
    HiddenWindow menu(chart.get());
    menu.SetTarget(FindShape(*chart, id));
    menu.OnCommand(ID_OBJECT_PROPERTIES);
  }
  bool Holds(const std::string& part) const {
    return chart->ModelText().find(part) != std::string::npos;
  }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }

  NotingBrowser browser;
  std::unique_ptr<LayoutMgr> chart;
  Host host;
  ScriptedDialogs dialogs;
};

TEST_F(ObjectDialog, StateTakesItsPropertiesBack) {
  host.Expect("State Properties", [this](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(StatePropDlg::IDC_NAME).text, "Idle");
    Host::Type(dialog, StatePropDlg::IDC_NAME, "Busy");
    Host::Toggle(dialog, StatePropDlg::IDC_HISTORY);
    dialogs.ExpectColor(0xBFFFFF, 0x123456);
    Host::Press(dialog, StatePropDlg::IDC_BG_COLOR);
    Host::Toggle(dialog, StatePropDlg::IDC_TRANSPARENT);
    EXPECT_FALSE(dialog.Control(StatePropDlg::IDC_BG_COLOR).enabled);
    Host::Press(dialog, IDOK);
  });
  Properties(kState);
  EXPECT_TRUE(Holds("\nBusy\n1 1193046 1\n"));
  EXPECT_EQ(browser.updated, std::vector<int>{kState});
  EXPECT_TRUE(CanUndo());
}

TEST_F(ObjectDialog, CancelChangesNothing) {
  const std::string before = chart->ModelText();
  host.Expect("State Properties", [this](CDialog& dialog) {
    Host::Type(dialog, StatePropDlg::IDC_NAME, "Busy");
    dialogs.ExpectColor(0xBFFFFF, 0x123456);
    Host::Press(dialog, StatePropDlg::IDC_BG_COLOR);
    Host::Toggle(dialog, StatePropDlg::IDC_TRANSPARENT);
    Host::Press(dialog, IDCANCEL);
  });
  Properties(kState);
  host.Expect("Message properties", [this](CDialog& dialog) {
    dialogs.ExpectColor(0xFFFFFF, std::nullopt);
    Host::Toggle(dialog, MesgPropDlg::IDC_TRANSPARENT);
    Host::Press(dialog, MesgPropDlg::IDC_BG_COLOR);
    Host::Press(dialog, IDCANCEL);
  });
  Properties(kMesg);
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_TRUE(browser.updated.empty());
  EXPECT_FALSE(CanUndo());
}

TEST_F(ObjectDialog, EmptiedNameIsStateWhateverTheDefaultIs) {
  CDefaultSettingDlg::Instance().StateName = "Fresh";
  host.Expect("State Properties", [](CDialog& dialog) {
    Host::Type(dialog, StatePropDlg::IDC_NAME, "");
    Host::Press(dialog, IDOK);
  });
  Properties(kState);
  CDefaultSettingDlg::Instance().LoadSettings();
  EXPECT_TRUE(Holds("\nState\n0 12582911 0\n"));
}

TEST_F(ObjectDialog, MessageTakesItsPropertiesBack) {
  host.Expect("Message properties", [this](CDialog& dialog) {
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_BG_COLOR).enabled);
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_BORDER_COLOR).enabled);
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_HIDDEN).checked);
    Host::Toggle(dialog, MesgPropDlg::IDC_NO_BORDER);
    dialogs.ExpectColor(0x00FF00, 0x0000FF);
    Host::Press(dialog, MesgPropDlg::IDC_BORDER_COLOR);
    Host::Toggle(dialog, MesgPropDlg::IDC_HIDDEN);
    Host::Press(dialog, IDOK);
  });
  Properties(kMesg);
  EXPECT_TRUE(Holds("30 10 40 16\n0\n1 0 16777215 255\n"));
}

TEST_F(ObjectDialog, BorderOfANoteStays) {
  host.Expect("Note Properties", [this](CDialog& dialog) {
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_NO_BORDER).enabled);
    EXPECT_FALSE(dialog.Control(MesgPropDlg::IDC_NO_BORDER).checked);
    dialogs.ExpectColor(0x000080, 0x000000);
    Host::Press(dialog, MesgPropDlg::IDC_BORDER_COLOR);
    Host::Toggle(dialog, MesgPropDlg::IDC_HIDDEN);
    Host::Toggle(dialog, MesgPropDlg::IDC_TRANSPARENT);
    Host::Press(dialog, IDOK);
  });
  Properties(kNote);
  EXPECT_TRUE(Holds("50 10 60 16\n0\n1 0 8454143 0\n"));
}

TEST_F(ObjectDialog, LineTakesIndices) {
  host.Expect("Line Properties", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(CLineProperty::IDC_COLOR).itemCount, 16);
    EXPECT_EQ(dialog.Control(CLineProperty::IDC_STYLE).itemCount, 5);
    Host::Choose(dialog, CLineProperty::IDC_COLOR, 13);
    Host::Choose(dialog, CLineProperty::IDC_STYLE, 4);
    Host::Press(dialog, IDOK);
  });
  Properties(kLine);
  EXPECT_TRUE(Holds("0 0 0 0\n13 4\n"));
}

/// What a damaged file holds is not mended by looking at it.
TEST(ObjectDialogFields, UnknownValuesStay) {
  Host host;
  CLineProperty line;
  line.colourIndex = 16;
  line.styleIndex = -1;
  StatePropDlg state;
  state.history = 7;
  host.Expect("Line Properties", [](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(CLineProperty::IDC_COLOR).selection, DialogControl::kNoItem);
    Host::Choose(dialog, CLineProperty::IDC_STYLE, 2);
    Host::Press(dialog, IDOK);
  });
  host.Expect("State Properties", [](CDialog& dialog) {
    EXPECT_TRUE(dialog.Control(StatePropDlg::IDC_HISTORY).checked);
    Host::Press(dialog, IDOK);
  });
  EXPECT_TRUE(line.DoModal());
  EXPECT_TRUE(state.DoModal());
  EXPECT_EQ(line.colourIndex, 16);
  EXPECT_EQ(line.styleIndex, 2);
  EXPECT_EQ(state.history, 7);
}

}  // namespace
