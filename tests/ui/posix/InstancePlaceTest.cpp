#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/support/Places.h"
#include "tests/ui/InstanceMeeting.h"

namespace morvane {

namespace {

/// Gives a variable of the process its value back at the end of a test.
class KeepVariable {
 public:
  explicit KeepVariable(const char* name) : name(name), value(qgetenv(name)) {}
  ~KeepVariable() { value.isNull() ? qunsetenv(name) : qputenv(name, value); }
  KeepVariable(const KeepVariable&) = delete;
  KeepVariable& operator=(const KeepVariable&) = delete;

 private:
  const char* name;
  QByteArray value;
};

TEST_F(SingleInstanceTest, TakesThePlaceOfWhatIsGone) {
  const auto leaveSocket = [this] {
    // A socket without a process, as after a kill
    const QString path = Link() + ".1";
    std::filesystem::create_symlink(folder.Path("meet.1"), folder.Path("meet"));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    folder.Path("meet.1").copy(address.sun_path, sizeof address.sun_path - 1);
    const int dead = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(dead, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(dead);
  };
  constexpr std::size_t linkAndSocket = 2;
  ExpectTakesThePlaceOf(
      {leaveSocket, [this] { std::filesystem::create_symlink("nowhere", folder.Path("meet")); },
       [this] { folder.Write("meet", "no socket"); }},
      linkAndSocket);
}

TEST_F(SingleInstanceTest, TheSocketIsTheUsersOwn) {
  Requests taken;
  SingleInstance first(Into(taken), Place());
  EXPECT_FALSE(first.Begin({}));
  struct stat about = {};
  ASSERT_EQ(stat(folder.Path("meet").c_str(), &about), 0);
  EXPECT_TRUE(S_ISSOCK(about.st_mode));
  EXPECT_EQ(about.st_mode & 0777U, 0700U);
}

TEST_F(SingleInstanceTest, ThePlaceIsTheUsersOwn) {
  const KeepVariable runtime("XDG_RUNTIME_DIR");
  const KeepVariable temporary("TMPDIR");
  const auto folderOf = [] { return InstancePlace::Default().folder.toStdString(); };
  std::filesystem::permissions(folder.Root(), std::filesystem::perms::owner_all);
  qputenv("XDG_RUNTIME_DIR", folder.Root().c_str());
  qputenv("TMPDIR", folder.Root().c_str());
  EXPECT_EQ(folderOf(), folder.Root().string());
  const std::string own = folder.Path("morvane-" + std::to_string(getuid()));
  const std::string longPath = folder.Path(std::string(90, 'x'));
  std::filesystem::create_directory(longPath);
  std::filesystem::permissions(longPath, std::filesystem::perms::owner_all);
  for (const std::string& unusable : {std::string(), longPath}) {
    qputenv("XDG_RUNTIME_DIR", unusable.c_str());
    EXPECT_EQ(folderOf(), own);
  }
  std::filesystem::permissions(own, std::filesystem::perms::all);
  EXPECT_EQ(folderOf(), "") << "others can put a socket there";
}

/// The real program, with settings and a meeting place of its own.
class ProgramStartTest : public testing::Test {
 protected:
  ProgramStartTest() {
    std::filesystem::permissions(folder.Root(), std::filesystem::perms::owner_all);
    std::filesystem::create_directory(folder.Path("Halvern"));
    folder.Write("Halvern/Morvane.ini", "[General]\nLanguage=eng\n");
  }
  QProcess& StartProgram(const QStringList& arguments) {
    const std::string own = folder.Root().string();
    return programs.Start(
        arguments, own,
        {{"XDG_RUNTIME_DIR", own}, {"XDG_CONFIG_HOME", own}, {"XDG_STATE_HOME", own}});
  }
  void WaitForRecentFile(const std::string& path) {
    RunUntil([&] {
      return folder.Read("Halvern/Morvane.ini").find("File1=" + path) != std::string::npos;
    });
  }

  const TempFolder folder;
  StartedPrograms programs;
};

TEST_F(ProgramStartTest, TwoStartsAtOnceEndInOneWindowWhichOpensLaterCharts) {
  QProcess& a = StartProgram({});
  QProcess& b = StartProgram({});
  QProcess& ended = StartedPrograms::WaitForOne(a, b);
  EXPECT_EQ(ended.exitCode(), 0);
  QProcess& running = &ended == &a ? b : a;
  folder.Write("My chart.mrv", ModelFile::ToDisk(SmallChart()));
  QProcess& later = StartProgram({"My chart.mrv"});
  EXPECT_EQ(&StartedPrograms::WaitForOne(later, running), &later);
  EXPECT_EQ(later.exitCode(), 0);
  WaitForRecentFile(folder.Path("My chart.mrv"));
  folder.Write("Other.mrv", ModelFile::ToDisk(SmallChart()));
  QProcess& beside = StartProgram({"--new-instance", "Other.mrv"});
  WaitForRecentFile(folder.Path("Other.mrv"));
  EXPECT_EQ(beside.state(), QProcess::Running);
  EXPECT_EQ(running.state(), QProcess::Running);
}

TEST_F(ProgramStartTest, ALimitOfFileSizesIsAnOrdinaryError) {
  folder.Write("Small.mrv", ModelFile::ToDisk(SmallChart()));
  QProcess job;
  job.setWorkingDirectory(QString::fromStdString(folder.Root().string()));
  const std::string line = "ulimit -f 0; exec " + DesignerPath() + " --export x.svg Small.mrv";
  job.start("sh", {"-c", QString::fromStdString(line)});
  ASSERT_TRUE(job.waitForFinished());
  EXPECT_EQ(job.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(job.exitCode(), 1);
  EXPECT_EQ(job.readAllStandardError(), "x.svg: File too large\n");
}

}  // namespace

}  // namespace morvane
