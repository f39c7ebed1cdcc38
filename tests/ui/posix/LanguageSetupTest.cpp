#include "platform/qt/posix/QtProfile.h"
#include "resources/TextSource.h"
#include "shell/Language.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// Which settings say what the language is, as the file of a user's settings is read.
TEST(LanguageSetup, SaysThatItCannotBeReadOnlyWhereSettingsAreDamaged) {
  const struct {
    const char* text;  ///< null for no file
    bool damaged;
  } cases[] = {{nullptr, false},
               {"", false},
               {"[Settings]\nStateName=Mine\n", false},
               {"[General]\nLanguage=eng\n", false},
               {"[General]\nLanguage=eng\nstray line\n", false},
               {"\x7F"
                "ELF\x01\x02\n\x03",
                true},
               {"[Settings]\nstray line\n", true},
               {"[General]\nLanguage=@Variant(xyz)\n", true},
               {"[General]\nLanguage=english\n", true}};
  const TempFolder folder;
  const std::string path = folder.Path("Morvane.ini");
  for (const auto& [text, damaged] : cases) {
    if (text != nullptr) folder.Write("Morvane.ini", text);
    QtProfile profile(path);
    const UseService<Profile> use(profile);
    ScriptedMessageBoxes boxes;
    if (damaged) boxes.Expect("Unable to read language information");
    LoadLanguage(folder.Root().string());
    EXPECT_EQ(boxes.Shown().size(), damaged ? 1U : 0U) << (text != nullptr ? text : "no file");
  }
  // What stands in the place of the file, but is none
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  QtProfile profile(path);
  const UseService<Profile> use(profile);
  ScriptedMessageBoxes boxes;
  boxes.Expect("Unable to read language information");
  LoadLanguage(folder.Root().string());
}

}  // namespace

}  // namespace morvane
