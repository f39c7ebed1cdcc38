#include <cerrno>
#include <csignal>
#include <cstring>
#include <map>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/faults/Faults.h"
#include "tests/support/ChartTest.h"

namespace {

constexpr int kErrors[] = {ENOSPC, EIO};

/// A folder with a chart under the pen and another file.
class FaultsTest : public testing::Test {
 protected:
  FaultsTest() {
    WriteWholeFile(Chart(), ModelFile::ToDisk(SmallChart()));
    WriteWholeFile(folder.Path("other.mrv"), "another file");
    document.SetView(std::make_unique<LayoutMgr>());
    document.SetPathName(Chart());
    EXPECT_TRUE(document.OnOpenDocument(Chart()));
    View().PlaceWithoutWindow(false);
    document.RememberSavedText();
  }
  std::string Chart() const { return folder.Path("chart.mrv"); }
  LayoutMgr& View() { return dynamic_cast<LayoutMgr&>(*document.GetView()); }
  /// All files of the folder by name.
  std::map<std::string, std::string> Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Root())) {
      ReadWholeFile(entry.path().string(), contents[entry.path().filename().string()]);
    }
    return contents;
  }

  TempFolder folder;
  ScriptedMessageBoxes boxes;
  CMorvaneDoc document;
};

TEST_F(FaultsTest, ASaveThatFailsAtAnyCallIsSaidAndCanBeRepeated) {
  View().GetProperties().Author = "Another";
  for (const int error : kErrors) {
    for (const bool cut : {false, true}) {
      bool failed = true;
      int call = 0;
      while (failed) {
        Faults::FailFileCall(Faults::Files::Writing, ++call, error, cut);
        if (call <= 4) boxes.Expect(call == 1 ? "Unable to open" : std::strerror(error));
        const bool saved = document.OnSaveDocument(Chart());
        failed = Faults::Disarm();
        EXPECT_EQ(saved, !failed) << call;
        EXPECT_EQ(document.IsModified(), failed) << call;
        EXPECT_EQ(Contents().at("other.mrv"), "another file");
        EXPECT_EQ(Contents().size(), 2U);
      }
      EXPECT_EQ(call, 5) << "open, write, flush, close, and then none";
      EXPECT_EQ(Contents().at("chart.mrv"), ModelFile::ToDisk(View().ModelText()));
      View().GetProperties().Author += "!";
    }
  }
}

TEST_F(FaultsTest, AReplacedFileKeepsItsBytesUntilTheNewOnesAreWhole) {
  const auto before = Contents();
  for (const int error : kErrors) {
    for (int call = 1; call <= 4; ++call) {
      Faults::FailFileCall(Faults::Files::Writing, call, error, true);
      EXPECT_FALSE(ReplaceWholeFile(Chart(), "new bytes").Ok());
      EXPECT_TRUE(Faults::Disarm()) << call;
      EXPECT_EQ(Contents(), before) << call;
    }
  }
  EXPECT_TRUE(ReplaceWholeFile(Chart(), "new bytes").Ok());
  EXPECT_EQ(Contents().at("chart.mrv"), "new bytes");
}

TEST_F(FaultsTest, AFileThatCannotBeReadIsSaid) {
  for (const int error : {EACCES, EIO}) {
    for (int call = 1; call <= 3; ++call) {
      LayoutMgr view;
      Faults::FailFileCall(Faults::Files::Reading, call, error);
      EXPECT_EQ(ModelFile::Load(Chart(), view), std::strerror(error)) << call;
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
    EXPECT_GT(request, size == 1 ? 200 : 1);
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
    const bool saved = document.OnSaveDocument(Chart());
    failed = Faults::Disarm();
    EXPECT_EQ(Contents().size(), 2U);
    if (!failed || saved) document.OnSaveDocument(folder.Path("none/chart.mrv"));
    EXPECT_EQ(boxes.Shown().size(), shown + 1);
  }
  EXPECT_GT(request, 2);
  EXPECT_EQ(Contents().at("chart.mrv"), ModelFile::ToDisk(View().ModelText()));
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

TEST_F(FaultsTest, AProcessKilledWhileSavingTouchesNothingElse) {
  const auto before = Contents();
  EXPECT_EQ(KilledWhile([this] { document.OnSaveDocument(Chart()); }), SIGXFSZ);
  auto after = Contents();
  EXPECT_EQ(after.at("chart.mrv"), before.at("chart.mrv").substr(0, 300));
  after.erase("chart.mrv");
  EXPECT_EQ(after.size(), 1U);
  EXPECT_EQ(after.at("other.mrv"), before.at("other.mrv"));
}

TEST_F(FaultsTest, AProcessKilledWhileReplacingLeavesTheOldFile) {
  const auto before = Contents();
  const std::string bytes(1000, 'x');
  EXPECT_EQ(KilledWhile([&] { ReplaceWholeFile(Chart(), bytes); }), SIGXFSZ);
  EXPECT_EQ(Contents().at("chart.mrv"), before.at("chart.mrv"));
  EXPECT_EQ(Contents().at("other.mrv"), before.at("other.mrv"));
  EXPECT_TRUE(ReplaceWholeFile(Chart(), bytes).Ok()) << "what it left behind is in nobody's way";
  EXPECT_EQ(Contents().size(), 2U);
}

}  // namespace
