#include <regex>

#include "drawing/TextCodec.h"
#include "platform/BoxMenu.h"
#include "platform/SystemError.h"
#include "platform/Wording.h"
#include "resources/TextLibrary.h"
#include "review/ChartDescription.h"
#include "shell/AllCommands.h"
#include "shell/Language.h"
#include "shell/MenuTable.h"
#include "states/FinalState.h"
#include "surface/ArrangeMenu.h"
#include "surface/ObjectMenus.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Places.h"
#include "tests/support/Variables.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(std::span<const MenuEntry> entries) {
  Texts texts;
  for (const MenuEntry& entry : entries) {
    if (entry.popup != nullptr) texts.emplace_back(entry.popup->title);
    if (entry.id != 0) texts.emplace_back(entry.TextOf(FindCommand(entry.id)));
  }
  return texts;
}

/// Every menu of the program, and the menu bars.
std::vector<Texts> AllMenus() {
  std::vector<Texts> menus = {TextsOf(BarMenu()), TextsOf(MenuOfChart()),
                              TextsOf(kArrangeMenu.entries)};
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
  Texts box;
  for (const BoxMenuEntry& entry : kBoxMenu) box.emplace_back(entry.text);
  menus.push_back(box);
  return menus;
}

/// The letter that chooses a text by the keyboard, in the present language; 0 if there is none.
int LetterOf(std::string_view english) {
  std::string text = Translate(english);
  for (std::size_t pair; (pair = text.find("&&")) != std::string::npos;) text.erase(pair, 2);
  const std::size_t letter = text.find('&') + 1;
  if (letter == 0 || letter == text.size()) return 0;
  const auto byte = static_cast<unsigned char>(text[letter]);
  EXPECT_LT(byte, 0x80) << "no key of every keyboard: " << text;
  return std::tolower(byte);
}

void ExpectLettersDiffer(const Texts& texts, const std::string& where) {
  std::map<int, std::string> seen;
  for (const std::string& text : texts) {
    const int letter = LetterOf(text);
    if (letter == 0) continue;
    EXPECT_TRUE(seen.emplace(letter, text).second)
        << where << ": " << Translate(text) << ", " << Translate(seen[letter]);
  }
}

/// The page that a control is on; 0 for one on none.
int PageOf(const Dialog& dialog, const DialogControl* control) {
  while (control->kind != DialogControl::Kind::Page && control->parent != 0) {
    control = &dialog.Control(control->parent);
  }
  return control->kind == DialogControl::Kind::Page ? control->id : 0;
}

/// The labels that the keyboard meets together: those of each page with those beside the pages.
void ExpectLettersInDialog(const Dialog& dialog) {
  using Kind = DialogControl::Kind;
  std::map<int, Texts> pages;
  for (const DialogControl& control : dialog.Controls()) {
    if (control.kind == Kind::Page) pages[control.id];
  }
  if (pages.empty()) pages[0];
  for (const DialogControl& control : dialog.Controls()) {
    const int page = control.kind == Kind::Page ? 0 : PageOf(dialog, &control);
    for (auto& [id, texts] : pages) {
      if (page == 0 || page == id) texts.push_back(control.label);
    }
    const bool isOnlyRead = dynamic_cast<const CGenerateCppDlg*>(&dialog) != nullptr &&
                            control.id == CGenerateCppDlg::kStatusId;
    const bool isField = !isOnlyRead && control.kind != Kind::Row && control.kind != Kind::Column &&
                         control.kind != Kind::Group && control.kind != Kind::Text;
    const bool hasKeyOfItsOwn = control.id == IDOK || control.id == IDCANCEL || control.isDefault;
    EXPECT_TRUE(!isField || hasKeyOfItsOwn || control.label.empty() || LetterOf(control.label) != 0)
        << dialog.Caption() << ": " << Translate(control.label);
  }
  for (const auto& [id, texts] : pages) ExpectLettersDiffer(texts, dialog.Caption());
}

/// The number of classes in dialogs/ and codegen/ that are dialogs.
std::size_t CountDialogClasses() {
  static const std::regex derived("public (Dialog|PropertySheet)\\b");
  std::size_t count = 0;
  for (const char* room : {"dialogs", "codegen"}) {
    for (const auto& entry : fs::directory_iterator(SourcePath(room))) {
      std::string text;
      if (entry.path().extension() == ".h") ReadWholeFile(entry.path().string(), text);
      const std::sregex_iterator found(text.begin(), text.end(), derived);
      count += static_cast<std::size_t>(std::distance(found, {}));
    }
  }
  return count;
}

/// The texts that the sources of a folder ask for in so many words.
Texts TextsAskedForIn(const fs::path& folder) {
  static const std::regex asked(
      R"(\b(?:Said|Translate|Worded|Text)\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+))");
  static const std::regex seam("\"\\s*\n\\s*\"");
  Texts texts;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    std::string source;
    if (entry.is_regular_file()) ReadWholeFile(entry.path().string(), source);
    for (std::sregex_iterator found(source.begin(), source.end(), asked), end; found != end;
         ++found) {
      std::string text = std::regex_replace(found->str(1), seam, "");
      text = text.substr(1, text.rfind('"') - 1);
      text = std::regex_replace(text, std::regex(R"(\\n)"), "\n");
      texts.push_back(std::regex_replace(text, std::regex(R"(\\")"), "\""));
    }
  }
  return texts;
}

/// What the program asks for, but for the command line and the generators.
const Texts& TextsAskedFor() {
  static Texts texts;
  if (!texts.empty()) return texts;
  for (const char* folder :
       {"platform", "model", "states", "connectors", "persistence", "recovery", "machine",
        "simulation", "surface", "dialogs", "codegen", "checks", "exchange", "review", "shell"}) {
    const Texts found = TextsAskedForIn(SourcePath(folder));
    texts.insert(texts.end(), found.begin(), found.end());
  }
  EXPECT_GT(texts.size(), 200);
  return texts;
}

/// Has a source of texts in use for as long as it lives.
class UseTexts {
 public:
  explicit UseTexts(TextSource& source) : former(TextSource::Use(&source)) {}
  ~UseTexts() { TextSource::Use(former); }
  UseTexts(const UseTexts&) = delete;
  UseTexts& operator=(const UseTexts&) = delete;

 private:
  TextSource* former;
};

/// What charts, and what is compared of them, are called.
Texts TextsOfObjects() {
  Texts texts = {"added",        "removed",      "changed",      "moved or other look", "unchanged",
                 "former place", "GenericState", "InitialState", "FinalState",          "Mesg",
                 "Transition",   "Note",         "Line"};
  ChartDescription chart;
  EXPECT_EQ(ChartDescription::Read(
                ChartText(StateRecord(1, {0, 0, 9, 9}) + InitialRecord(2, {0, 0, 4, 4}) +
                          TransitionRecord(3, 1, 1) + MesgRecord(4, 3, {0, 0, 9, 9}) +
                          NoteRecord(5, {0, 0, 9, 9}, Block("")) + LineRecord(6, 5, 5, "1 1 1 1")),
                chart),
            "");
  for (const Fact& fact : chart.properties) texts.emplace_back(fact.label);
  for (const DescribedObject& object : chart.objects) {
    for (const Fact& fact : object.facts) texts.emplace_back(fact.label);
  }
  EXPECT_GT(texts.size(), 30);
  return texts;
}

class LanguageLibrary : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    std::string bytes;
    const std::string folder = SourcePath("resources/lang/");
    ASSERT_TRUE(ReadWholeFile(folder + "lang" + GetParam() + ".txt", bytes).Ok());
    ASSERT_TRUE(IsValidUtf8(bytes) && library.Read(bytes));
  }
  void ExpectTranslated(std::string_view text) {
    EXPECT_TRUE(text.empty() || library.Translation(text).value_or("") != "") << text;
  }

  TextLibrary library;
};

TEST_P(LanguageLibrary, HasEveryTextOfTheProgram) {
  for (const EnglishText& text : EnglishTexts()) {
    EXPECT_NE(library.Text(text.id).value_or(""), "") << text.id << ": " << text.text;
  }
  for (const Command* command : AllCommands()) {
    for (const auto text : {command->text, command->prompt, command->toolTip}) {
      ExpectTranslated(text);
    }
  }
  for (const std::string& text : TextsOfObjects()) ExpectTranslated(text);
  for (const std::string& text : TextsAskedFor()) ExpectTranslated(text);
  for (const SystemErrorWords& words : SystemErrors()) ExpectTranslated(words.english);
  for (const auto& kind : ChartPicture::FileKinds()) ExpectTranslated(kind.filter);
  for (const std::string_view text : kPlatformTexts) ExpectTranslated(text);
  AllDialogs all;
  for (const Dialog* dialog : all.list) {
    ExpectTranslated(dialog->Caption());
    for (const DialogControl& control : dialog->Controls()) {
      ExpectTranslated(control.label);
      ExpectTranslated(control.spoken);
      if (!control.paintItem) continue;
      for (const std::string& item : control.items) ExpectTranslated(item);
    }
  }
  EXPECT_EQ(all.list.size(), CountDialogClasses()) << "a dialog is not looked at here";
}

TEST_P(LanguageLibrary, HasEveryTextOfMenusAndNoMnemonicTwiceInOne) {
  const UseTexts use(library);
  for (const Texts& menu : AllMenus()) {
    EXPECT_FALSE(menu.empty());
    for (const std::string& text : menu) ExpectTranslated(text);
    ExpectLettersDiffer(menu, "menu of " + menu.front());
  }
}

TEST_P(LanguageLibrary, HasALetterForEachFieldOfADialogAndNoneTwiceInOne) {
  AllDialogs all;
  const UseTexts use(library);
  for (const Dialog* dialog : all.list) ExpectLettersInDialog(*dialog);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLibrary, testing::Values("fra", "ger", "esp", "jpn"));

TEST(English, HasNoMnemonicTwiceInAMenuOrADialog) {
  for (const Texts& menu : AllMenus()) ExpectLettersDiffer(menu, "menu of " + menu.front());
  const AllDialogs all;
  for (const Dialog* dialog : all.list) ExpectLettersInDialog(*dialog);
}

TEST(TextLibrary, KeepsKeysAndUnknownTextsAndNamesMissingNumbers) {
  TextLibrary library;
  ASSERT_TRUE(
      library.Read("Morvane texts\txx\r\n#5\tcomment\n\nno tab\n&Open...\t&Auf...\r\n"
                   "7\tone\\ntwo\\\\three\\tfour\n32952\t\n33008\tlost\n32955\ttwo\\nlines\n"
                   "33163\tin %2: %1!\n33001\t%2.1f\noverlaps %1\tlost\n"
                   "bad\\"));
  for (const char* bytes : {"", "MZ\x90", "7\teight\n", "Morvane texts"}) {
    EXPECT_FALSE(library.Read(bytes)) << bytes << " is no library, and nothing changes";
  }
  EXPECT_EQ(library.Locale(), "xx");
  EXPECT_EQ(library.Text(7), "one\ntwo\\three\tfour");
  EXPECT_FALSE(library.Text(5));
  EXPECT_FALSE(library.Text(33008)) << "it lacks the place for the name";
  EXPECT_FALSE(library.Text(33001)) << "it lacks a version";
  EXPECT_FALSE(library.Translation("overlaps %1"));
  const UseTexts use(library);
  EXPECT_EQ(MenuText({ID_FILE_OPEN}), "&Auf...\tCtrl+O");
  EXPECT_EQ(Translate("Unheard of"), "Unheard of");
  EXPECT_EQ(Said(IDS_READ_IN, {"%2", "b"}), "in b: %2!");
  for (const unsigned id : {IDS_UNTITLED, IDS_STATE_NAME}) {
    EXPECT_EQ(LoadText(id), "-MISSING-") << "a name is one line with something on it";
  }
}

/// Sets what tells the system's locale; null for nothing.
void SetLocale(const char* all, const char* messages, const char* lang) {
  for (const auto& [name, value] :
       {std::pair("LC_ALL", all), std::pair("LC_MESSAGES", messages), std::pair("LANG", lang)}) {
    SetVariable(name, value);
  }
}

class LoadLanguageTest : public testing::Test {
 protected:
  LoadLanguageTest() {
    folder.Write("langfra.dll", "Morvane texts\tfr\n32952\tSans titre\n");
    folder.Write("langger.dll", "no library");
    folder.Write("langjpn.dll", "Morvane texts\tja\n32952\t\u7121\u984C\n");
  }
  ~LoadLanguageTest() override {
    TextSource::Use(nullptr);
    SetLocale("C", nullptr, nullptr);
  }
  /// What the program calls a new chart.
  std::string Untitled() {
    LoadLanguage(folder.Root().string());
    return LoadText(IDS_UNTITLED);
  }
  struct Settings : public MemoryProfile {
    bool IsDamaged(const std::string& section, const std::string& key) override {
      return damaged && !Find(section, key);
    }
    bool damaged = false;
  };

  TempFolder folder;
  Settings profile;
  const UseService<Profile> use{profile};
  ScriptedMessageBoxes boxes;
};

TEST_F(LoadLanguageTest, SpeaksTheLanguageOfTheProfileOrSaysWhyNot) {
  const char* unreadable =
      "Unable to read language information from registry. Setting language to English";
  const char* unsupported = "Unsupported language found in registry. Setting language to English";
  const char* unloadable =
      "Unable to load the language DLL 'langger.dll'. Please re install Morvane.";
  const struct {
    const char* value;  ///< null for none, in settings that are damaged
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
  SetLocale(nullptr, nullptr, "fr_FR.UTF-8");
  profile.damaged = true;
  for (const auto& [value, untitled, message, flags] : cases) {
    if (value != nullptr) profile.WriteString("", "Language", value);
    if (value == nullptr) ChooseLanguage("");
    if (message != nullptr) boxes.Expect(message);
    EXPECT_EQ(Untitled(), untitled);
    if (message != nullptr) {
      EXPECT_EQ(boxes.LastFlags(), flags) << message;
    }
  }
}

TEST_F(LoadLanguageTest, SpeaksTheLanguageOfTheSystemUnlessTheUserHasChosen) {
  const struct {
    const char* all;
    const char* messages;
    const char* lang;
    const char* untitled;
  } cases[] = {{nullptr, nullptr, nullptr, "Untitled"},
               {nullptr, nullptr, "fr", "Sans titre"},
               {nullptr, nullptr, "fr_CA.UTF-8@euro", "Sans titre"},
               {nullptr, nullptr, "fry_NL", "Untitled"},
               {"", "", "fr_FR", "Sans titre"},
               {"", "fr_FR", "C", "Sans titre"},
               {"C.UTF-8", "fr_FR", "fr_FR", "Untitled"},
               {nullptr, nullptr, "de_AT.UTF-8", "Untitled"},  // no text can be read from that
               {nullptr, nullptr, "es_ES.UTF-8", "Untitled"},
               {nullptr, nullptr, "ja_JP.UTF-8", "\u7121\u984C"}};
  for (const auto& [all, messages, lang, untitled] : cases) {
    SetLocale(all, messages, lang);
    EXPECT_EQ(Untitled(), untitled) << (lang != nullptr ? lang : "none");
    ChooseLanguage("eng");
    EXPECT_EQ(ChosenLanguage(), "eng");
    EXPECT_EQ(Untitled(), "Untitled");
    ChooseLanguage("");
    EXPECT_EQ(ChosenLanguage(), "");
  }
}

}  // namespace

}  // namespace morvane
