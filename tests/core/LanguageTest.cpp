#include <regex>

#include "platform/TextCodec.h"
#include "resources/Language.h"
#include "resources/TextLibrary.h"
#include "shell/MenuTable.h"
#include "states/FinalState.h"
#include "surface/ObjectMenus.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/ChartTest.h"

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

template <class Entries>
Texts TextsOf(const Entries& entries) {
  Texts texts;
  for (const auto& entry : entries) {
    if (entry.id != 0) texts.emplace_back(entry.text);
  }
  return texts;
}

/// Every menu of the program, and the menu bars.
std::vector<Texts> AllMenus() {
  std::vector<Texts> menus = {TextsOf(BarMenu()), TextsOf(MenuOfChart())};
  for (const auto bar : {StartMenu(), ChartMenu()}) {
    Texts titles;
    for (const MenuPopup& popup : bar) {
      titles.emplace_back(popup.title);
      menus.push_back(TextsOf(popup.entries));
    }
    menus.push_back(titles);
  }
  const auto add = [&menus](const Shape& shape) { menus.push_back(TextsOf(MenuOf(&shape))); };
  add(GenericState());
  add(InitialState());
  add(FinalState());
  add(Transition());
  add(Mesg());
  add(Note());
  add(Line());
  return menus;
}

/// The number of classes in dialogs/ and codegen/ that are dialogs.
std::size_t CountDialogClasses() {
  static const std::regex derived("public (CDialog|CPropertySheet)\\b");
  std::size_t count = 0;
  for (const char* room : {"dialogs", "codegen"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(MORVANE_SOURCE_DIR) / room)) {
      std::string text;
      if (entry.path().extension() == ".h") ReadWholeFile(entry.path().string(), text);
      const std::sregex_iterator found(text.begin(), text.end(), derived);
      count += static_cast<std::size_t>(std::distance(found, {}));
    }
  }
  return count;
}

class LanguageLibrary : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    std::string bytes;
    const std::string folder = MORVANE_SOURCE_DIR "/resources/lang/";
    ASSERT_TRUE(ReadWholeFile(folder + "lang" + GetParam() + ".txt", bytes).Ok());
    ASSERT_TRUE(IsValidUtf8(bytes) && library.Read(bytes));
  }
  void ExpectTranslated(std::string_view english) {
    const std::string_view text = english.substr(0, english.find('\t'));
    EXPECT_TRUE(text.empty() || library.Translation(text).value_or("") != "") << text;
  }

  TextLibrary library;
};

TEST_P(LanguageLibrary, HasEveryTextOfTheProgram) {
  for (const EnglishText& text : EnglishTexts()) {
    EXPECT_NE(library.Text(text.id).value_or(""), "") << text.id << ": " << text.text;
  }
  for (unsigned id = 0; id <= std::numeric_limits<std::uint16_t>::max(); ++id) {
    ExpectTranslated(CommandPrompt(id));
    ExpectTranslated(CommandToolTip(id));
  }
  for (const auto& kind : ChartPicture::FileKinds()) ExpectTranslated(kind.filter);
  ExpectTranslated("Selection &only");
  AllDialogs all;
  for (const CDialog* dialog : all.list) {
    ExpectTranslated(dialog->Caption());
    for (const DialogControl& control : dialog->Controls()) ExpectTranslated(control.label);
  }
  EXPECT_EQ(all.list.size(), CountDialogClasses()) << "a dialog is not looked at here";
}

TEST_P(LanguageLibrary, HasEveryTextOfMenusAndNoMnemonicTwiceInOne) {
  const UseService<TextSource> use(library);
  for (const Texts& menu : AllMenus()) {
    EXPECT_FALSE(menu.empty());
    std::set<int> letters;
    for (const std::string& text : menu) {
      ExpectTranslated(text);
      const std::string shown = Translate(text);
      const std::size_t letter = shown.find('&') + 1;
      if (letter == 0 || letter == shown.size()) continue;
      EXPECT_TRUE(letters.insert(std::tolower(static_cast<unsigned char>(shown[letter]))).second)
          << "a letter twice in the menu of " << menu.front() << ": " << shown;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLibrary, testing::Values("fra", "ger", "esp"));

TEST(TextLibrary, KeepsKeysAndUnknownTextsAndNamesMissingNumbers) {
  TextLibrary library;
  ASSERT_TRUE(
      library.Read("Morvane texts\txx\r\n#5\tcomment\n\nno tab\n&Open...\t&Auf...\r\n"
                   "7\tone\\ntwo\\\\three\\tfour\n32952\t\n33008\tlost\n32955\ttwo\\nlines\n"
                   "bad\\"));
  for (const char* bytes : {"", "MZ\x90", "7\teight\n", "Morvane texts"}) {
    EXPECT_FALSE(library.Read(bytes)) << bytes << " is no library, and nothing changes";
  }
  EXPECT_EQ(library.Locale(), "xx");
  EXPECT_EQ(library.Text(7), "one\ntwo\\three\tfour");
  EXPECT_FALSE(library.Text(5));
  EXPECT_FALSE(library.Text(33008)) << "it lacks the place for the name";
  const UseService<TextSource> use(library);
  EXPECT_EQ(Translate("&Open...\tCtrl+O"), "&Auf...\tCtrl+O");
  EXPECT_EQ(Translate("Unheard of\tF9"), "Unheard of\tF9");
  for (const unsigned id : {IDS_UNTITLED, IDS_STATE_NAME}) {
    EXPECT_EQ(LoadText(id), "-MISSING-") << "a name is one line with something on it";
  }
}

TEST(LoadLanguage, SpeaksTheLanguageOrSaysWhyNot) {
  const char* unreadable =
      "Unable to read language information from registry. Setting language to English";
  const char* unsupported = "Unsupported language found in registry. Setting language to English";
  const char* unloadable =
      "Unable to load the language DLL 'langger.dll'. Please re install Morvane.";
  const struct {
    const char* value;  ///< null for none
    const char* untitled;
    const char* message = nullptr;
    unsigned flags = MB_OK;
  } cases[] = {{"eng", "Untitled"},
               {"fra", "Sans titre"},
               {nullptr, "Untitled", unreadable},
               {"fran", "Untitled", unreadable},
               {"", "Untitled", unsupported},
               {"deu", "Untitled", unsupported},
               {"FRA", "Untitled", unsupported},
               {"ger", "Untitled", unloadable, MB_ICONHAND},
               {"esp", "Untitled", "langesp.dll", MB_ICONHAND}};
  TempFolder folder;
  folder.Write("langfra.dll", "Morvane texts\tfr\n32952\tSans titre\n");
  folder.Write("langger.dll", "no library");
  for (const auto& [value, untitled, message, flags] : cases) {
    MemoryProfile profile;
    const UseService<Profile> use(profile);
    ScriptedMessageBoxes boxes;
    if (value != nullptr) profile.WriteString("", "Language", value);
    if (message != nullptr) boxes.Expect(message);
    LoadLanguage(folder.Root().string());
    EXPECT_EQ(LoadText(IDS_UNTITLED), untitled);
    EXPECT_EQ(boxes.LastFlags(), flags);
    Service<TextSource>::Set(nullptr);
  }
}

}  // namespace
