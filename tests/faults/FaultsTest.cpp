#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/faults/Faults.h"
#include "tests/support/ChartTest.h"

namespace fs = std::filesystem;

namespace {

/// A folder with a chart under the pen and another file.
class FaultsTest : public testing::Test {
 protected:
  FaultsTest() {
    folder.Write("other.mrv", "another file");
    document.SetView(std::make_unique<LayoutMgr>());
    document.SetPathName(path);
    EXPECT_TRUE(document.OnOpenDocument(path));
    View().PlaceWithoutWindow(false);
    document.RememberSavedText();
  }
  LayoutMgr& View() { return dynamic_cast<LayoutMgr&>(*document.GetView()); }
  std::string Bytes() { return ModelFile::ToDisk(View().ModelText()); }
  /// The chart's file has these bytes and the other one its own, and there is no third.
  void ExpectFiles(const std::string& chart) const {
    EXPECT_EQ(folder.Read("chart.mrv"), chart);
    EXPECT_EQ(folder.Read("other.mrv"), "another file");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Root()), {}), 2);
  }

  TempFolder folder;
  const std::string path = folder.Write("chart.mrv", ModelFile::ToDisk(SmallChart()));
  ScriptedMessageBoxes boxes;
  CMorvaneDoc document;
};

TEST_F(FaultsTest, ASaveThatFailsAtAnyCallIsSaidAndCanBeRepeated) {
  for (const auto& [error, cut] : {std::pair{ENOSPC, false}, {ENOSPC, true}, {EIO, true}}) {
    View().GetProperties().Author += "!";
    const std::string before = folder.Read("chart.mrv");
    bool failed = true;
    int call = 0;
    while (failed) {
      Faults::FailFileCall(Faults::Files::Writing, ++call, error, cut);
      if (call <= 4) boxes.Expect(call == 1 ? "Unable to open" : std::strerror(error));
      const bool saved = document.OnSaveDocument(path);
      failed = Faults::Disarm();
      EXPECT_EQ(saved, !failed) << call;
      EXPECT_EQ(document.IsModified(), failed) << call;
      ExpectFiles(call == 1 ? before : folder.Read("chart.mrv"));
    }
    EXPECT_EQ(call, 5) << "open, write, flush, close, and then none";
    ExpectFiles(Bytes());
  }
}

TEST_F(FaultsTest, AReplacedFileKeepsItsBytesUntilTheNewOnesAreWhole) {
  for (const int error : {ENOSPC, EIO}) {
    for (int call = 1; call <= 4; ++call) {
      Faults::FailFileCall(Faults::Files::Writing, call, error, true);
      EXPECT_FALSE(ReplaceWholeFile(path, "new bytes").Ok());
      EXPECT_TRUE(Faults::Disarm()) << call;
      ExpectFiles(Bytes());
    }
  }
  EXPECT_TRUE(ReplaceWholeFile(path, "new bytes").Ok());
  ExpectFiles("new bytes");
}

TEST_F(FaultsTest, AFileThatCannotBeReadIsSaid) {
  for (const int error : {EACCES, EIO}) {
    for (int call = 1; call <= 3; ++call) {
      LayoutMgr view;
      Faults::FailFileCall(Faults::Files::Reading, call, error);
      EXPECT_EQ(ModelFile::Load(path, view), std::strerror(error)) << call;
      EXPECT_TRUE(Faults::Disarm()) << "open, the bytes, and the end";
    }
  }
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileReadingIsSaid) {
  const std::string example = MORVANE_SOURCE_DIR "/Examples/Socket_C++/Socket.mrv";
  for (const std::size_t size : {std::size_t{1}, std::size_t{1} << 16}) {
    bool failed = true;
    int request = 0;
    while (failed) {
      auto view = std::make_unique<LayoutMgr>();
      Faults::FailMemory(++request, size);
      std::string reason;
      try {
        reason = ModelFile::Load(example, *view);
      } catch (const std::bad_alloc&) {
        reason = "not even the message";  // its own text was what there was no memory for
      }
      failed = Faults::Disarm();
      EXPECT_EQ(reason.empty(), !failed) << request << " of " << size;
    }
    EXPECT_GT(request, size == 1 ? 100 : 1);
  }
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileSavingIsSaid) {
  View().GetProperties().Author = "Another";
  bool failed = true;
  int request = 0;
  while (failed) {
    constexpr std::size_t large = 512;  // a copy of the text; message boxes get by with less
    const std::size_t shown = boxes.Shown().size();
    boxes.Expect("");
    Faults::FailMemory(++request, large);
    const bool saved = document.OnSaveDocument(path);
    failed = Faults::Disarm();
    if (!failed || saved) document.OnSaveDocument(folder.Path("none/chart.mrv"));
    EXPECT_EQ(boxes.Shown().size(), shown + 1);
  }
  EXPECT_GT(request, 2);
  ExpectFiles(Bytes());
}

/// What a child process does before it is killed in the middle of a file.
int KilledWhile(const std::function<void()>& writing) {
  const pid_t child = fork();
  if (child == 0) {
    // A file that grows beyond its limit ends its process.
    rlimit limit{};
    limit.rlim_cur = limit.rlim_max = 300;
    setrlimit(RLIMIT_FSIZE, &limit);
    rlimit noCore{};
    setrlimit(RLIMIT_CORE, &noCore);
    std::signal(SIGXFSZ, SIG_DFL);
    writing();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST_F(FaultsTest, AKilledProcessTouchesNothingElse) {
  const std::string bytes(1000, 'x');
  EXPECT_EQ(KilledWhile([&] { ReplaceWholeFile(path, bytes); }), SIGXFSZ);
  EXPECT_EQ(folder.Read("chart.mrv"), Bytes()) << "a file that is replaced has its old bytes";
  EXPECT_TRUE(ReplaceWholeFile(path, bytes).Ok()) << "what it left behind is in nobody's way";
  ExpectFiles(bytes);
  EXPECT_EQ(KilledWhile([this] { document.OnSaveDocument(path); }), SIGXFSZ);
  ExpectFiles(Bytes().substr(0, 300));
}

}  // namespace
