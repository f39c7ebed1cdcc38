#include <cerrno>
#include <cstring>

#include "tests/faults/Faults.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Places.h"

namespace morvane {

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
    View().PlaceWithoutWindow(LayoutMgr::Size::Stored);
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
  // Follow a link, open, look, reserve, write, cut, sync, close
  constexpr int opening = 3;
  constexpr int writing = 5;
  constexpr int calls = 8;
  for (const auto& [error, cut] : {std::pair{ENOSPC, false}, {ENOSPC, true}, {EIO, true}}) {
    View().GetProperties().Author += std::string(5000, '!');
    const std::string before = folder.Read("chart.mrv");
    bool failed = true;
    int call = 0;
    while (failed) {
      Faults::FailFileCall(Faults::Files::Writing, ++call, error, cut);
      if (call <= calls) boxes.Expect(call <= opening ? "Unable to open" : std::strerror(error));
      const bool saved = document.OnSaveDocument(path);
      failed = Faults::Disarm();
      EXPECT_EQ(saved, !failed) << call;
      EXPECT_EQ(document.IsModified(), failed) << call;
      const bool isWhole = call < writing || (call == writing && !cut);
      ExpectFiles(isWhole ? before : folder.Read("chart.mrv"));
    }
    EXPECT_EQ(call, calls + 1);
    ExpectFiles(Bytes());
  }
}

TEST_F(FaultsTest, AFileThatCannotBeReadIsSaid) {
  for (const int error : {EACCES, EIO}) {
    for (int call = 1; call <= 3; ++call) {
      LayoutMgr view;
      Faults::FailFileCall(Faults::Files::Reading, call, error);
      EXPECT_EQ(ModelFile::Load(path, view), std::strerror(error)) << call;
      EXPECT_TRUE(Faults::Disarm()) << "open, look, and the bytes";
    }
  }
}

TEST_F(FaultsTest, MemoryThatRunsOutWhileReadingIsSaid) {
  const std::string example = SourcePath("Examples/Socket_C++/Socket.mrv");
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

/// One way to give a file new bytes, an old file or none, and what goes wrong.
struct Deed {
  FileResult (*act)(const std::string&, std::string_view);
  bool hadOld;
  bool cut;
  bool Replaces() const { return act == ReplaceWholeFile; }
};

class DeedTest : public testing::TestWithParam<Deed> {
 protected:
  void Prepare() {
    for (const auto& entry : fs::directory_iterator(folder.Root())) fs::remove(entry.path());
    for (const char* name : strangers) folder.Write(name, "a stranger's");
    if (!GetParam().hadOld) return;
    folder.Write("out", oldBytes);
    fs::last_write_time(path, longAgo);
  }
  FileResult Act() { return GetParam().act(path, newBytes); }
  /// Other files have their bytes, and there are no more of them.
  void ExpectStrangers(std::ptrdiff_t left = 0) const {
    for (const char* name : strangers) EXPECT_EQ(folder.Read(name), "a stranger's");
    const std::ptrdiff_t count = std::distance(fs::directory_iterator(folder.Root()), {});
    const std::ptrdiff_t known = fs::exists(path) ? 3 : 2;
    EXPECT_LE(count, known + left);
  }
  bool IsUntouched() const {
    return GetParam().hadOld ? folder.Read("out") == oldBytes : !fs::exists(path);
  }

  static constexpr const char* strangers[] = {"out.new", "other"};
  const std::string oldBytes = std::string(3000, 'o');
  const std::string newBytes = std::string(9000, 'n');
  const fs::file_time_type longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
  TempFolder folder;
  const std::string path = folder.Path("out");
};

TEST_P(DeedTest, AFailureAtAnyCallIsSaidAndLeavesTheOldFile) {
  for (const int error : {ENOSPC, EIO}) {
    int done = 0;
    bool failed = true;
    for (int call = 1; failed; ++call) {
      Prepare();
      Faults::FailFileCall(Faults::Files::Writing, call, error, GetParam().cut);
      const FileResult result = Act();
      failed = Faults::Disarm();
      EXPECT_EQ(result.Ok(), !failed) << call;
      EXPECT_EQ(result.error, failed ? error : 0) << call;
      ExpectStrangers();
      if (result.stage == FileResult::Stage::Open || result.stage == FileResult::Stage::Reserve) {
        EXPECT_TRUE(IsUntouched()) << call;
        EXPECT_TRUE(!GetParam().hadOld || fs::last_write_time(path) == longAgo) << call;
      } else if (GetParam().Replaces() || !GetParam().hadOld) {
        // Once it has its name it is whole; only the folder may not be on the disk.
        done += !IsUntouched();
        EXPECT_TRUE(IsUntouched() || folder.Read("out") == newBytes) << call;
      }
      EXPECT_TRUE(Act().Ok()) << call;
      EXPECT_EQ(folder.Read("out"), newBytes);
      ExpectStrangers();
    }
    if (GetParam().Replaces()) {
      EXPECT_EQ(done, 4) << "the folder's open, sync and close, and success";
    }
  }
}

TEST_P(DeedTest, WhereNoFileMayTakeItsPlaceItIsWrittenInPlace) {
  int refused = 0;
  bool failed = true;
  for (int call = 1; failed; ++call) {
    Prepare();
    Faults::FailFileCall(Faults::Files::Writing, call, EPERM, GetParam().cut);
    const FileResult result = Act();
    failed = Faults::Disarm();
    if (failed && result.Ok()) ++refused;
    EXPECT_TRUE(!result.Ok() || folder.Read("out") == newBytes) << call;
    ExpectStrangers();
  }
  // Making the new file, giving it owner or mode, renaming it
  EXPECT_EQ(refused, !GetParam().Replaces() ? 0 : GetParam().hadOld ? 4 : 2);
}

TEST_P(DeedTest, AKillAtAnyCallLeavesTheOldBytesOrTheNewOnes) {
  const Deed& deed = GetParam();
  constexpr int writing = 5;  // in place: a link, open, look, reserve, and then this
  Faults::End end = Faults::End::Killed;
  int call = 0;
  while (end == Faults::End::Killed) {
    Prepare();
    end = Faults::KillAtFileCall(++call, deed.cut, [this] { Act(); });
    ASSERT_NE(end, Faults::End::Failed) << call;
    ExpectStrangers(deed.Replaces() ? 1 : 0);
    const std::string left = folder.Read("out");
    if (deed.Replaces()) {
      EXPECT_TRUE(IsUntouched() || left == newBytes) << call;
    } else if (deed.hadOld && (call < writing || (call == writing && !deed.cut))) {
      EXPECT_EQ(left.substr(0, oldBytes.size()), oldBytes) << call;
      EXPECT_EQ(left.find_first_not_of('\0', oldBytes.size()), std::string::npos) << call;
    }
    EXPECT_TRUE(Act().Ok()) << "what was left behind is in nobody's way";
    EXPECT_EQ(folder.Read("out"), newBytes);
  }
  EXPECT_GT(call, writing);
}

INSTANTIATE_TEST_SUITE_P(
    Files, DeedTest,
    testing::Values(Deed{WriteWholeFile, true, false}, Deed{WriteWholeFile, true, true},
                    Deed{WriteWholeFile, false, false}, Deed{WriteWholeFile, false, true},
                    Deed{ReplaceWholeFile, true, false}, Deed{ReplaceWholeFile, true, true},
                    Deed{ReplaceWholeFile, false, false}, Deed{ReplaceWholeFile, false, true}));

}  // namespace

}  // namespace morvane
