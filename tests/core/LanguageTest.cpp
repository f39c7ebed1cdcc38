#include <fstream>
#include <memory>
#include <string_view>

#include "codegen/CCodegenSheet.h"
#include "codegen/CGenerateCppDlg.h"
#include "dialogs/CDefaultSettingDlg.h"
#include "dialogs/CEventEditor.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/PrinterSetup.h"
#include "dialogs/StatePropDlg.h"
#include "platform/TextCodec.h"
#include "resources/Language.h"
#include "resources/TextLibrary.h"
#include "shell/MenuTable.h"
#include "states/FinalState.h"
#include "surface/ObjectMenus.h"
#include "tests/support/ChartTest.h"

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

constexpr unsigned kLastCommand = 0xFFFF;

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
  std::vector<Texts> menus;
  for (const auto bar : {StartMenu(), ChartMenu()}) {
    Texts titles;
    for (const MenuPopup& popup : bar) {
      titles.emplace_back(popup.title);
      menus.push_back(TextsOf(popup.entries));
    }
    menus.push_back(titles);
  }
  menus.push_back(TextsOf(BarMenu()));
  menus.push_back(TextsOf(MenuOfChart()));
  const GenericState state;
  const InitialState initial;
  const FinalState final;
  const Transition transition;
  const Mesg mesg;
  const Note note;
  const Line line;
  for (const Shape* shape : std::initializer_list<const Shape*>{&state, &initial, &final,
                                                                &transition, &mesg, &note, &line}) {
    menus.push_back(TextsOf(MenuOf(shape)));
    EXPECT_FALSE(menus.back().empty());
  }
  return menus;
}

/// The names of the classes in dialogs/ and codegen/ that are dialogs.
std::set<std::string> DialogClasses() {
  std::set<std::string> names;
  for (const char* room : {"dialogs", "codegen"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(MORVANE_SOURCE_DIR) / room)) {
      if (entry.path().extension() != ".h") continue;
      std::ifstream in(entry.path());
      for (std::string line; std::getline(in, line);) {
        const bool isDialog = line.find("public CDialog") != std::string::npos ||
                              line.find("public CPropertySheet") != std::string::npos;
        if (isDialog) names.insert(entry.path().stem().string());
      }
    }
  }
  return names;
}

class AllDialogs {
 public:
  AllDialogs() : chart(LoadChart(SmallChart())) {
    Add("CCodegenSheet", std::make_unique<CCodegenSheet>());
    Add("CEventEditor", std::make_unique<CEventEditor>());
    Add("CGenerateCppDlg", std::make_unique<CGenerateCppDlg>(GeneratorKind::Cpp));
    Add("CLineProperty", std::make_unique<CLineProperty>());
    Add("EditMesgDlg", std::make_unique<EditMesgDlg>());
    Add("EntryExitEditor", std::make_unique<EntryExitEditor>());
    Add("FindReplaceDlg", std::make_unique<FindReplaceDlg>(chart->GetModel()));
    Add("LayoutMgrPropDlg", std::make_unique<LayoutMgrPropDlg>());
    Add("MesgPropDlg", std::make_unique<MesgPropDlg>());
    Add("PrinterSetup", std::make_unique<PrinterSetup>());
    Add("StatePropDlg", std::make_unique<StatePropDlg>());
  }
  std::set<std::string> names = {"CDefaultSettingDlg"};
  std::vector<const CDialog*> all = {&CDefaultSettingDlg::Instance()};

 private:
  void Add(const char* name, std::unique_ptr<CDialog> dialog) {
    names.insert(name);
    all.push_back(dialog.get());
    owned.push_back(std::move(dialog));
  }
  std::unique_ptr<LayoutMgr> chart;
  std::vector<std::unique_ptr<CDialog>> owned;
};

char Mnemonic(std::string_view text) {
  const std::size_t mark = text.find('&');
  if (mark == std::string_view::npos || mark + 1 >= text.size()) return 0;
  return static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
}

class LanguageLibrary : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string path =
        std::string(MORVANE_SOURCE_DIR) + "/resources/lang/lang" + GetParam() + ".txt";
    std::string bytes;
    ASSERT_TRUE(ReadWholeFile(path, bytes).Ok()) << path;
    ASSERT_TRUE(IsValidUtf8(bytes));
    ASSERT_TRUE(library.Read(bytes));
  }
  void ExpectTranslated(std::string_view english) {
    const std::string_view text = english.substr(0, english.find('\t'));
    if (text.empty()) return;
    EXPECT_NE(library.Translation(text).value_or(""), "") << text;
  }
  TextLibrary library;
};

TEST_P(LanguageLibrary, HasEveryNumber) {
  for (const EnglishText& text : EnglishTexts()) {
    EXPECT_NE(library.Text(text.id).value_or(""), "") << text.id << ": " << text.text;
  }
  EXPECT_FALSE(library.Text(1));
}

TEST_P(LanguageLibrary, HasEveryTextOfMenusAndPrompts) {
  for (const Texts& menu : AllMenus()) {
    for (const std::string& text : menu) ExpectTranslated(text);
  }
  for (unsigned id = 0; id <= kLastCommand; ++id) {
    ExpectTranslated(CommandPrompt(id));
    ExpectTranslated(CommandToolTip(id));
  }
}

TEST_P(LanguageLibrary, HasEveryTextOfDialogs) {
  for (const auto& kind : ChartPicture::FileKinds()) ExpectTranslated(kind.filter);
  ExpectTranslated("Selection &only");
  const AllDialogs dialogs;
  EXPECT_EQ(dialogs.names, DialogClasses()) << "a dialog is not looked at here";
  for (const CDialog* dialog : dialogs.all) {
    ExpectTranslated(dialog->Caption());
    for (const DialogControl& control : dialog->Controls()) ExpectTranslated(control.label);
  }
}

TEST_P(LanguageLibrary, HasNoMnemonicTwiceInAMenu) {
  const UseService<TextSource> use(library);
  for (const Texts& menu : AllMenus()) {
    std::set<char> letters;
    for (const std::string& text : menu) {
      const char letter = Mnemonic(Translate(text));
      EXPECT_TRUE(letter == 0 || letters.insert(letter).second)
          << letter << " twice in the menu of " << menu.front() << ": " << Translate(text);
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

TEST(TextLibrary, RefusesWhatIsNoLibraryAndStaysAsItWas) {
  TextLibrary library;
  ASSERT_TRUE(library.Read("Morvane texts\txx\n7\tseven\n"));
  for (const char* bytes : {"", "MZ\x90", "7\teight\n", "Morvane texts"}) {
    EXPECT_FALSE(library.Read(bytes)) << bytes;
  }
  EXPECT_EQ(library.Text(7), "seven");
}

struct LanguageCase {
  const char* value;  ///< null for none
  const char* message;
  const char* untitled;
};

class LoadLanguageTest : public testing::TestWithParam<LanguageCase> {
 protected:
  LoadLanguageTest() {
    std::ofstream(folder.Path("langfra.dll")) << "Morvane texts\tfr\n32952\tSans titre\n";
    std::ofstream(folder.Path("langger.dll")) << "no library";
  }
  ~LoadLanguageTest() override { Service<TextSource>::Set(nullptr); }
  TempFolder folder;
  MemoryProfile profile;
  ScriptedMessageBoxes boxes;
  const UseService<Profile> use{profile};
};

constexpr const char* kUnreadable =
    "Unable to read language information from registry. Setting language to English";
constexpr const char* kUnsupported =
    "Unsupported language found in registry. Setting language to English";

TEST_P(LoadLanguageTest, SpeaksTheLanguageOrSaysWhyNot) {
  const auto& [value, message, untitled] = GetParam();
  if (value != nullptr) profile.WriteString("", "Language", value);
  if (message != nullptr) boxes.Expect(message);
  LoadLanguage(folder.Root().string());
  EXPECT_EQ(LoadText(IDS_UNTITLED), untitled);
  if (message != nullptr) {
    EXPECT_EQ(boxes.Shown(), Texts{message});
    const bool isLoad = std::string_view(message).starts_with("Unable to load");
    EXPECT_EQ(boxes.LastFlags(), isLoad ? MB_ICONHAND : MB_OK);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Values, LoadLanguageTest,
    testing::Values(LanguageCase{"eng", nullptr, "Untitled"},
                    LanguageCase{"fra", nullptr, "Sans titre"},
                    LanguageCase{nullptr, kUnreadable, "Untitled"},
                    LanguageCase{"fran", kUnreadable, "Untitled"},
                    LanguageCase{"", kUnsupported, "Untitled"},
                    LanguageCase{"deu", kUnsupported, "Untitled"},
                    LanguageCase{"FRA", kUnsupported, "Untitled"},
                    LanguageCase{"ger",
                                 "Unable to load the language DLL 'langger.dll'. Please re "
                                 "install Morvane.",
                                 "Untitled"},
                    LanguageCase{"esp",
                                 "Unable to load the language DLL 'langesp.dll'. Please re "
                                 "install Morvane.",
                                 "Untitled"}));

}  // namespace
