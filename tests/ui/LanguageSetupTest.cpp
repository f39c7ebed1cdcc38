#include <cstdlib>

#include <QSettings>

#include "platform/qt/QtProfile.h"
#include "tests/ui/WindowTest.h"

namespace {

/// Runs the script that every way of starting the program runs first.
int RunLanguageScript(const TempFolder& folder) {
  const std::string command = "XDG_CONFIG_HOME='" + folder.Root().string() + "' '" +
                              MORVANE_SOURCE_DIR "/scripts/language.sh'";
  return std::system(command.c_str());
}

TEST(LanguageSetup, IsFoundByTheProgramAndKeptWhereItIsSet) {
  const TempFolder folder;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                     QString::fromStdString(folder.Root().string()));
  ASSERT_EQ(RunLanguageScript(folder), 0);
  {
    QtProfile profile;
    EXPECT_EQ(profile.GetString("", "Language", ""), "eng");
    profile.WriteString("Settings", "StateName", "Mine");
    profile.WriteString("", "Language", "fra");
  }
  ASSERT_EQ(RunLanguageScript(folder), 0);
  QtProfile profile;
  EXPECT_EQ(profile.GetString("", "Language", ""), "fra");
  EXPECT_EQ(profile.GetString("Settings", "StateName", ""), "Mine");
}

}  // namespace
