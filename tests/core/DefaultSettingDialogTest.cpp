#include "dialogs/CDefaultSettingDlg.h"
#include "tests/support/ChartTest.h"

namespace {

using Dlg = CDefaultSettingDlg;
using Host = ScriptedDialogHost;

/// Settings in memory that note in which order they are written.
class NotingProfile : public MemoryProfile {
 public:
  void Write(const std::string& section, const std::vector<Setting>& settings) override {
    for (const auto& [key, value] : settings) written.push_back(section + "/" + key + "=" + value);
    MemoryProfile::Write(section, settings);
  }
  std::vector<std::string> written;
};

class DefaultSettingDialog : public testing::Test {
 protected:
  DefaultSettingDialog() : former(Service<Profile>::Set(&profile)) {}
  ~DefaultSettingDialog() override {
    Service<Profile>::Set(former);
    Dlg::Instance().LoadSettings();
  }
  void Open(const Host::Script& script) {
    host.Expect("Default Settings", script);
    Dlg::Instance().ShowDialog();
  }

  NotingProfile profile;
  Profile* former;
  Host host;
  ScriptedDialogs dialogs;
  Dlg& store = Dlg::Instance();
};

TEST_F(DefaultSettingDialog, SavesSeventeenKeysInOrder) {
  Open([this](CDialog& dialog) {
    EXPECT_EQ(dialog.Control(Dlg::IDC_STATE_NAME).text, "State");
    Host::Type(dialog, Dlg::IDC_STATE_NAME, "");
    Host::Type(dialog, Dlg::IDC_ENTRY, "a();\r\nb();");
    Host::Toggle(dialog, Dlg::IDC_STATE_ANCHOR);
    Host::Choose(dialog, Dlg::IDC_LINE_COLOR, 15);
    Host::Choose(dialog, Dlg::IDC_LINE_STYLE, 4);
    dialogs.ExpectFont(Dialogs::FontChoice{"Serif", 105, 0x00FF00});
    Host::Press(dialog, Dlg::IDC_TEXT_STYLE);
    Host::Press(dialog, IDOK);
  });
  EXPECT_EQ(profile.written,
            (std::vector<std::string>{
                "Settings/StateName=", "Settings/StateAnchor=0", "Settings/Entry=a();\r\nb();",
                "Settings/Exit=", "Settings/StateBgTransparent=0", "Settings/MesgAnchor=1",
                "Settings/MesgBorder=1", "Settings/MesgBgTransparent=1", "Settings/ShowGrid=1",
                "Settings/StateBgColor=12582911", "Settings/MesgBorderColor=65280",
                "Settings/MesgBgColor=16777215", "Settings/LineColor=15", "Settings/LineStyle=4",
                "Settings/FontName=Serif", "Settings/FontSize=105", "Settings/FontColor=65280"}));
  store.LoadSettings();
  EXPECT_EQ(store.StateName, "");
  EXPECT_EQ(store.Entry, "a();\r\nb();");
}

TEST_F(DefaultSettingDialog, ColoursReachTheStoreAtOnceAndCancelBringsTheProfileBack) {
  profile.MemoryProfile::Write("Settings", {{"StateBgColor", "1122867"}});
  Open([this](CDialog& dialog) {
    dialogs.ExpectColor(0x112233, 0x445566);
    Host::Press(dialog, Dlg::IDC_STATE_BG_COLOR);
    EXPECT_EQ(store.StateBgColor, 0x445566U);
    Host::Type(dialog, Dlg::IDC_STATE_NAME, "Typed");
    Host::Toggle(dialog, Dlg::IDC_NO_BORDER);
    EXPECT_EQ(store.StateName, "Typed") << "all controls are taken into the store";
    dialogs.ExpectColor(0x00FF00, std::nullopt);
    Host::Press(dialog, Dlg::IDC_BORDER_COLOR);
    EXPECT_EQ(store.MesgBorderColor, 0x00FF00U);
    Host::Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(store.StateBgColor, 0x112233U);
  EXPECT_EQ(store.StateName, "State");
  EXPECT_EQ(store.MesgBorder, 1);
  EXPECT_TRUE(profile.written.empty());
}

TEST_F(DefaultSettingDialog, EachBoxRulesItsColour) {
  const struct {
    int box;
    int button;
    bool enabledAtFirst;
  } cases[] = {{Dlg::IDC_STATE_TRANSPARENT, Dlg::IDC_STATE_BG_COLOR, true},
               {Dlg::IDC_MESG_TRANSPARENT, Dlg::IDC_MESG_BG_COLOR, false},
               {Dlg::IDC_NO_BORDER, Dlg::IDC_BORDER_COLOR, false}};
  Open([&](CDialog& dialog) {
    for (const auto& c : cases) {
      EXPECT_EQ(dialog.Control(c.button).enabled, c.enabledAtFirst) << c.box;
      Host::Toggle(dialog, c.box);
      EXPECT_EQ(dialog.Control(c.button).enabled, !c.enabledAtFirst) << c.box;
    }
    Host::Press(dialog, IDCANCEL);
  });
}

TEST_F(DefaultSettingDialog, FontDialogStartsWithWholePoints) {
  profile.MemoryProfile::Write("Settings", {{"FontSize", "85"}});
  Open([this](CDialog& dialog) {
    dialogs.ExpectFont(std::nullopt);
    Host::Press(dialog, Dlg::IDC_TEXT_STYLE);
    EXPECT_EQ(store.FontSize, 85);
    Host::Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(dialogs.LastFont().tenths, 80);
  EXPECT_EQ(dialogs.LastFont().face, "Verdana");
  EXPECT_EQ(dialogs.LastFont().color, 0x000080U);
}

}  // namespace
