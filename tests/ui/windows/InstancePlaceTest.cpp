#include "drawing/qt/QtText.h"
#include "tests/ui/InstanceMeeting.h"

namespace morvane {

namespace {

TEST_F(SingleInstanceTest, TakesThePlaceOfWhatIsGone) {
  constexpr std::size_t linkAlone = 1;
  ExpectTakesThePlaceOf({[this] { folder.Write("meet", "morvane-of-a-process-that-is-gone"); },
                         [this] { folder.Write("meet", std::string("\0\xFF\\", 3)); },
                         [this] { folder.Write("meet", ""); }},
                        linkAlone);
}

TEST_F(SingleInstanceTest, ThePipeIsNoOtherProgramsGuess) {
  std::set<std::string> names;
  for (int i = 0; i < 3; ++i) {
    Requests taken;
    SingleInstance first(Into(taken), Place());
    EXPECT_FALSE(first.Begin({}));
    names.insert(folder.Read("meet"));
  }
  EXPECT_EQ(names.size(), 3U);
}

TEST_F(SingleInstanceTest, TwoStartsOfTheProgramAtOnceEndInOneWindow) {
  // Where programs of this user keep what is nobody else's business
  const std::map<QString, std::string> own = {{"LOCALAPPDATA", folder.Root().string()}};
  StartedPrograms programs;
  const auto start = [&](const QStringList& arguments) -> QProcess& {
    return programs.Start(arguments, folder.Root().string(), own);
  };
  QProcess& a = start({});
  QProcess& b = start({});
  QProcess& ended = StartedPrograms::WaitForOne(a, b);
  EXPECT_EQ(ended.exitCode(), 0);
  QProcess& running = &ended == &a ? b : a;
  QProcess& beside = start({"--new-instance"});
  QProcess& later = start({});
  EXPECT_EQ(&StartedPrograms::WaitForOne(later, running), &later);
  EXPECT_EQ(later.exitCode(), 0);
  EXPECT_EQ(beside.state(), QProcess::Running);
}

TEST(PathsOfTheToolkit, HaveTheSystemsSeparatorsAndNoMarkOfLength) {
  const struct {
    const char* ours;
    const char* toolkits;
    const char* back;
  } cases[] = {{"C:\\a\\b.mrv", "C:/a/b.mrv", "C:\\a\\b.mrv"},
               {"C:/a/b.mrv", "C:/a/b.mrv", "C:\\a\\b.mrv"},
               {"\\\\?\\C:\\a.mrv", "C:/a.mrv", "C:\\a.mrv"},
               {"\\\\?\\UNC\\srv\\share\\\xC3\xA4.mrv", "//srv/share/\xC3\xA4.mrv",
                "\\\\srv\\share\\\xC3\xA4.mrv"}};
  for (const auto& c : cases) {
    EXPECT_EQ(ToQPath(c.ours).toStdString(), c.toolkits);
    EXPECT_EQ(FromQPath(ToQPath(c.ours)), c.back);
    EXPECT_EQ(ShownPath(c.ours).toStdString(), c.back);
  }
}

}  // namespace

}  // namespace morvane
