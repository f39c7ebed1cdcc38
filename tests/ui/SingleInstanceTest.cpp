#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFileSystemWatcher>
#include <QThread>

#include "drawing/qt/QtText.h"
#include "shell/qt/SingleInstance.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

using std::chrono::milliseconds;
using Requests = std::vector<InstanceRequest>;

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

/// Starts meet in a folder of the test's own.
class SingleInstanceTest : public testing::Test {
 protected:
  InstancePlace Place(milliseconds answerTime = std::chrono::minutes(1)) const {
    return {QString::fromStdString(folder.Root().string()), "meet", answerTime};
  }
  QString Link() const { return QString::fromStdString(folder.Path("meet")); }
  SingleInstance::Handler Into(Requests& requests) {
    return [&requests](const InstanceRequest& request) { requests.push_back(request); };
  }
  /// Does something like another process: in a thread of its own, while this one runs its loop, or
  /// while it hangs.
  template <class Act>
  static void Elsewhere(const Act& act, bool hangs = false) {
    const std::unique_ptr<QThread> thread(QThread::create(act));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    if (!hangs) loop.exec();
    thread->wait();
  }
  /// Another start, which ends; true if it handed its request over.
  bool StartElsewhere(const InstanceRequest& request, bool hangs = false,
                      milliseconds answerTime = std::chrono::minutes(1)) {
    bool handedOver = false;
    Elsewhere(
        [&] {
          SingleInstance other([](const InstanceRequest&) {}, Place(answerTime));
          handedOver = other.Begin(request);
        },
        hangs);
    return handedOver;
  }
  std::size_t Files() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder.Root()), {}));
  }

  const TempFolder folder;
};

TEST_F(SingleInstanceTest, LaterStartsHandOverWhateverTheyAskFor) {
  Requests taken;
  SingleInstance first(Into(taken), Place());
  EXPECT_FALSE(first.Begin({}));
  QApplication::processEvents();
  const Requests sent = {{"/x/\xFF\n.mrv", "id", "token"}, {}};
  for (const InstanceRequest& request : sent) EXPECT_TRUE(StartElsewhere(request));
  EXPECT_EQ(taken, sent);
  EXPECT_FALSE(StartElsewhere({"relative.mrv", "", ""})) << "it means another file here";
  struct stat about = {};
  ASSERT_EQ(stat(folder.Path("meet").c_str(), &about), 0);
  EXPECT_TRUE(S_ISSOCK(about.st_mode));
  EXPECT_EQ(about.st_mode & 0777U, 0700U);

  SingleInstance beside([](const InstanceRequest&) { FAIL(); }, Place());
  EXPECT_FALSE(beside.Begin({"/y.mrv", "", ""}, SingleInstance::Wish::Stay));
  EXPECT_TRUE(StartElsewhere({})) << "the first one is still the one that is found";
  EXPECT_EQ(taken.size(), 3U);
  first.End();
  EXPECT_FALSE(StartElsewhere({}));
}

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
  const std::function<void()> leftovers[] = {
      leaveSocket,
      [this] { std::filesystem::create_symlink("nowhere", folder.Path("meet")); },
      [this] { folder.Write("meet", "no socket"); },
  };
  for (const auto& leave : leftovers) {
    leave();
    Requests taken;
    SingleInstance first(Into(taken), Place());
    EXPECT_FALSE(first.Begin({}));
    QApplication::processEvents();
    EXPECT_EQ(Files(), 2U) << "the link and the socket";
    EXPECT_TRUE(StartElsewhere({"/z", "", ""}));
    EXPECT_EQ(taken.size(), 1U);
    first.End();
    std::filesystem::remove(folder.Path("meet"));
  }
}

TEST_F(SingleInstanceTest, OneThatHangsGetsNoRequestLaterAndIsNotAskedAgain) {
  Requests late;
  SingleInstance hanging(Into(late), Place());
  EXPECT_FALSE(hanging.Begin({}));
  QApplication::processEvents();
  EXPECT_FALSE(StartElsewhere({"/a", "", ""}, true, milliseconds(30)));

  Requests taken;
  SingleInstance next(Into(taken), Place());
  for (int i = 0; i < 10; ++i) QApplication::processEvents();  // it wakes up
  EXPECT_TRUE(late.empty()) << "the other start has opened its own window meanwhile";
  EXPECT_FALSE(next.Begin({}));
  QApplication::processEvents();
  hanging.End();
  EXPECT_TRUE(StartElsewhere({"/b", "", ""}));
  EXPECT_EQ(taken, (Requests{{"/b", "", ""}}));
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
  ~ProgramStartTest() override {
    for (const auto& process : started) {
      process->kill();
      process->waitForFinished();
    }
  }
  QProcess& StartProgram(const QStringList& arguments) {
    started.push_back(std::make_unique<QProcess>());
    QProcess& process = *started.back();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
      environment.insert(name, QString::fromStdString(folder.Root().string()));
    }
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder.Root().string()));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(MORVANE_PROGRAM, arguments);
    EXPECT_TRUE(process.waitForStarted());
    return process;
  }
  /// The first of two processes that ends.
  static QProcess& WaitForOne(QProcess& a, QProcess& b) {
    while (a.state() == QProcess::Running && b.state() == QProcess::Running) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return a.state() == QProcess::Running ? b : a;
  }
  void WaitForRecentFile(const std::string& path) {
    QFileSystemWatcher watcher({QString::fromStdString(folder.Path("Halvern"))});
    while (folder.Read("Halvern/Morvane.ini").find("File1=" + path) == std::string::npos) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
  }

  const TempFolder folder;
  std::vector<std::unique_ptr<QProcess>> started;
};

TEST_F(ProgramStartTest, TwoStartsAtOnceEndInOneWindowWhichOpensLaterCharts) {
  QProcess& a = StartProgram({});
  QProcess& b = StartProgram({});
  QProcess& ended = WaitForOne(a, b);
  EXPECT_EQ(ended.exitCode(), 0);
  QProcess& running = &ended == &a ? b : a;
  folder.Write("My chart.mrv", ModelFile::ToDisk(SmallChart()));
  QProcess& later = StartProgram({"My chart.mrv"});
  EXPECT_EQ(&WaitForOne(later, running), &later);
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
  job.start("sh", {"-c", "ulimit -f 0; exec " MORVANE_PROGRAM " --export x.svg Small.mrv"});
  ASSERT_TRUE(job.waitForFinished());
  EXPECT_EQ(job.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(job.exitCode(), 1);
  EXPECT_EQ(job.readAllStandardError(), "x.svg: File too large\n");
}

}  // namespace

}  // namespace morvane
