#include "platform/ShellOpen.h"
#include "shell/HelpCommands.h"
#include "tests/support/ChartTest.h"

namespace {

/// A desktop that answers every wish to open something in one way.
class FakeDesktop : public ShellOpen {
 public:
  OpenResult OpenFile(const std::string& path) override { return opened = path, result; }
  OpenResult OpenWeb(const std::string& address) override { return opened = address, result; }

  OpenResult result = OpenResult::Opened;
  std::string opened;

 private:
  const UseService<ShellOpen> use{*this};
};

TEST(HelpCommands, SayWhatCannotBeOpened) {
  constexpr const char* address = "https://morvane.halvern.example";
  const std::tuple<unsigned, OpenResult, const char*, const char*> cases[] = {
      {ID_USER_GUIDE, OpenResult::Opened, "Morvane-UserGuide.pdf", ""},
      {ID_TUTORIAL, OpenResult::Failed, "Morvane-Tutorial.pdf", ""},
      {ID_USER_GUIDE, OpenResult::NotFound, "Morvane-UserGuide.pdf", "Help file not found"},
      {ID_TUTORIAL, OpenResult::NoProgram, "Morvane-Tutorial.pdf", "Please manually open : "},
      {ID_WEB_PAGE, OpenResult::NotFound, address, ""},
      {ID_WEB_PAGE, OpenResult::NoProgram, address, "Please go to web page : "}};
  FakeDesktop desktop;
  ScriptedMessageBoxes boxes;
  for (const auto& [command, result, opened, message] : cases) {
    desktop.result = result;
    if (*message != '\0') boxes.Expect(message);
    EXPECT_TRUE(HelpCommands::Run(command));
    EXPECT_TRUE(desktop.opened.ends_with(opened)) << desktop.opened;
    const bool isTold = result == OpenResult::NoProgram;
    EXPECT_TRUE(!isTold || boxes.Shown().back().ends_with(desktop.opened));
  }
  EXPECT_FALSE(HelpCommands::Run(ID_APP_ABOUT));
}

}  // namespace
