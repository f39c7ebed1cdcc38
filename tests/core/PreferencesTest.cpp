#include "dialogs/PreferencesDlg.h"
#include "shell/Language.h"
#include "shell/Preferences.h"
#include "shell/SessionSettings.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

/// Chooses in the dialog that opens, and closes it.
class PreferencesUser : public DialogHost {
 public:
  void Run(Dialog& dialog) override {
    for (const int id : {PreferencesDlg::kLanguageId, PreferencesDlg::kReopenId}) {
      const DialogControl& combo = dialog.Control(id);
      shown.push_back(combo.selection < 0 ? "" : combo.items.at(combo.selection));
    }
    languages = dialog.Control(PreferencesDlg::kLanguageId).items;
    if (language >= 0) dialog.Control(PreferencesDlg::kLanguageId).selection = language;
    if (reopen >= 0) dialog.Control(PreferencesDlg::kReopenId).selection = reopen;
    dialog.Click(button);
  }
  int language = -1;  ///< to choose
  int reopen = -1;
  int button = IDOK;
  std::vector<std::string> shown;  ///< as the dialog opened
  std::vector<std::string> languages;

 private:
  const UseService<DialogHost> use{*this};
};

TEST(PreferencesTest, ShowsAndStoresWhatIsChosen) {
  const struct {
    const char* code;  ///< in the profile before
    const char* reopen;
    const char* shownLanguage;
    const char* shownReopen;
    int chooseLanguage;
    int chooseReopen;
    int button;
    const char* codeAfter;
    const char* reopenAfter;
  } cases[] = {
      {"-", "-", "System language", "After a crash", -1, -1, IDOK, "-", "-"},
      {"-", "-", "System language", "After a crash", 3, 2, IDOK, "ger", "always"},
      {"ger", "always", "Deutsch", "Always", 0, 0, IDOK, "-", "never"},
      {"ger", "never", "Deutsch", "Never", 1, 1, IDCANCEL, "ger", "never"},
      {"eng", "nonsense", "English", "After a crash", -1, 1, IDOK, "eng", "nonsense"},
      {"xyz", "crash", "System language", "After a crash", -1, -1, IDOK, "-", "crash"},
      {"xyz", "crash", "System language", "After a crash", 4, -1, IDOK, "esp", "crash"},
  };
  for (const auto& c : cases) {
    MemoryProfile profile;
    const UseService<Profile> use(profile);
    if (*c.code != '-') profile.WriteString("", "Language", c.code);
    if (*c.reopen != '-') profile.WriteString("Session", "Reopen", c.reopen);
    PreferencesUser user;
    user.language = c.chooseLanguage;
    user.reopen = c.chooseReopen;
    user.button = c.button;
    EditPreferences();
    EXPECT_EQ(user.shown, (std::vector<std::string>{c.shownLanguage, c.shownReopen}));
    EXPECT_EQ(user.languages,
              (std::vector<std::string>{"System language", "English", "Fran\u00E7ais", "Deutsch",
                                        "Espa\u00F1ol", "\u65E5\u672C\u8A9E"}));
    EXPECT_EQ(profile.GetString("", "Language", "-"), c.codeAfter);
    EXPECT_EQ(profile.GetString("Session", "Reopen", "-"), c.reopenAfter);
  }
}

}  // namespace

}  // namespace morvane
