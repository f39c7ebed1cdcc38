#include "dialogs/CDefaultSettingDlg.h"
#include "tests/support/ChartTest.h"

namespace {

using Dlg = CDefaultSettingDlg;
using Host = ScriptedDialogHost;

/// Settings in memory that note in which order they are written.
class NotingProfile : public MemoryProfile {
 public:
  void Write(const std::string& section, const std::vector<Setting>& settings) override {
    for (const auto& [key, value] : settings) written += section + "/" + key + "=" + value + "|";
    MemoryProfile::Write(section, settings);
  }
  std::string written;
};

class DefaultSettingDialog : public testing::Test {
 protected:
  ~DefaultSettingDialog() override {
    profile = {};
    store.LoadSettings();
  }
  void Open(const Host::Script& script) {
    host.Expect("Default Settings", script);
    store.ShowDialog();
  }

  NotingProfile profile;
  const UseService<Profile> use{profile};
  Host host;
  ScriptedDialogs dialogs;
  Dlg& store = Dlg::Instance();
};

TEST_F(DefaultSettingDialog, SavesSeventeenKeysInOrder) {
  profile.MemoryProfile::Write("Settings", {{"FontSize", "85"}});
  Open([this](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(Dlg::IDC_STATE_NAME).text, "State");
    Host::Type(dialog, Dlg::IDC_STATE_NAME, "");
    Host::Type(dialog, Dlg::IDC_ENTRY, "a();\r\nb();");
    Host::Toggle(dialog, Dlg::IDC_STATE_ANCHOR);
    Host::Choose(dialog, Dlg::IDC_LINE_COLOR, 15);
    Host::Choose(dialog, Dlg::IDC_LINE_STYLE, 4);
    for (const std::int32_t size : {0, 105}) {
      using Font = Dialogs::FontChoice;
      dialogs.ExpectFont(size != 0 ? std::optional(Font{"Serif", size, 0x00FF00}) : std::nullopt);
      Host::Press(dialog, Dlg::IDC_TEXT_STYLE);
      EXPECT_EQ(dialogs.LastFont().tenths, 80) << "whole points";
      EXPECT_EQ(dialogs.LastFont().face, "Verdana");
      EXPECT_EQ(dialogs.LastFont().color, 0x000080U);
      EXPECT_EQ(store.FontSize, size != 0 ? size : 85);
    }
    Host::Press(dialog, IDOK);
  });
  EXPECT_EQ(profile.written,
            "Settings/StateName=|Settings/StateAnchor=0|Settings/Entry=a();\r\nb();|"
            "Settings/Exit=|Settings/StateBgTransparent=0|Settings/MesgAnchor=1|"
            "Settings/MesgBorder=1|Settings/MesgBgTransparent=1|Settings/ShowGrid=1|"
            "Settings/StateBgColor=12582911|Settings/MesgBorderColor=65280|"
            "Settings/MesgBgColor=16777215|Settings/LineColor=15|Settings/LineStyle=4|"
            "Settings/FontName=Serif|Settings/FontSize=105|Settings/FontColor=65280|");
  store.LoadSettings();
  EXPECT_EQ(store.StateName + "|" + store.Entry, "|a();\r\nb();");
}

TEST_F(DefaultSettingDialog, ColoursReachTheStoreAtOnceAndCancelBringsTheProfileBack) {
  const struct {
    int box;
    int button;
    bool enabledAtFirst;
    COLORREF start;
    COLORREF& stored;
  } cases[] = {
      {Dlg::IDC_STATE_TRANSPARENT, Dlg::IDC_STATE_BG_COLOR, true, 0x112233, store.StateBgColor},
      {Dlg::IDC_MESG_TRANSPARENT, Dlg::IDC_MESG_BG_COLOR, false, 0xFFFFFF, store.MesgBgColor},
      {Dlg::IDC_NO_BORDER, Dlg::IDC_BORDER_COLOR, false, 0x00FF00, store.MesgBorderColor}};
  profile.MemoryProfile::Write("Settings", {{"StateBgColor", "1122867"}});
  Open([&](CDialog& dialog) {
    Host::Type(dialog, Dlg::IDC_STATE_NAME, "Typed");
    for (const auto& c : cases) {
      EXPECT_EQ(dialog.Control(c.button).enabled, c.enabledAtFirst) << c.box;
      if (!c.enabledAtFirst) Host::Toggle(dialog, c.box);
      dialogs.ExpectColor(c.start, 0x445566);
      Host::Press(dialog, c.button);
      EXPECT_EQ(c.stored, 0x445566U);
      if (c.enabledAtFirst) Host::Toggle(dialog, c.box);
      EXPECT_EQ(dialog.Control(c.button).enabled, !c.enabledAtFirst) << c.box;
    }
    EXPECT_EQ(store.StateName, "Typed") << "all controls are taken into the store";
    Host::Press(dialog, IDCANCEL);
  });
  for (const auto& c : cases) EXPECT_EQ(c.stored, c.start);
  EXPECT_EQ(store.StateName, "State");
  EXPECT_EQ(store.MesgBorder, 1);
  EXPECT_EQ(profile.written, "");
}

TEST_F(DefaultSettingDialog, NewObjectsAndChartsTakeTheSettings) {
  profile.Write("Settings", {{"StateName", "Fresh"},
                             {"StateAnchor", "0"},
                             {"Entry", "in();"},
                             {"Exit", "out();"},
                             {"StateBgTransparent", "1"},
                             {"StateBgColor", "1122867"},
                             {"MesgAnchor", "0"},
                             {"MesgBorder", "0"},
                             {"MesgBgTransparent", "0"},
                             {"MesgBgColor", "16"},
                             {"MesgBorderColor", "32"},
                             {"LineColor", "3"},
                             {"LineStyle", "2"},
                             {"ShowGrid", "0"}});
  store.LoadSettings();
  LayoutMgr chart;
  chart.OnInitialUpdate();
  EXPECT_FALSE(chart.IsGridShown());
  POINT place{600, 600};
  chart.GetModel().InsertGenericState(place);
  chart.GetModel().InsertLine(place);
  chart.GetModel().InsertTransition(place);
  chart.GetModel().Objects().back()->OnCommand(ID_TRANSITION_ADD_MESG);
  const std::string text = chart.ModelText();
  for (const char* part :
       {"\n0\nFresh\n0 1122867 1\n5\nTEXTBEGIN\nin();\nTEXTEND\n6\nTEXTBEGIN\nout();\nTEXTEND\n",
        "\n3 2\n", "\n0\n0 0 16 32\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
  }
}

}  // namespace
