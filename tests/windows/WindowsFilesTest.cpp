#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/FileStamp.h"
#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/TailFile.h"
#include "platform/windows/WideText.h"
#include "tests/windows/WideFolder.h"

namespace morvane {

namespace {

using Stage = FileResult::Stage;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A file that another program has open.
class OpenElsewhere {
 public:
  explicit OpenElsewhere(const std::string& path, DWORD share)
      : file(CreateFileW(WidePath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0,
                         nullptr)) {}
  ~OpenElsewhere() { CloseHandle(file); }
  OpenElsewhere(const OpenElsewhere&) = delete;
  OpenElsewhere& operator=(const OpenElsewhere&) = delete;

  /// Locks its first byte.
  bool Lock() const { return LockFile(file, 0, 0, 1, 0) != 0; }

 private:
  HANDLE file;
};

/// What both ways to write a file have in common.
class WindowsFilesTest : public testing::TestWithParam<decltype(&WriteWholeFile)> {
 protected:
  FileResult Put(const std::string& path, std::string_view bytes) {
    return GetParam()(path, bytes);
  }
  static std::string Read(const std::string& path) {
    std::string bytes;
    return ReadWholeFile(path, bytes).Ok() ? bytes : "unreadable";
  }
  void ExpectWritable(const std::string& path) {
    for (const char* bytes : {"first and longer", "second"}) {
      EXPECT_TRUE(Put(path, bytes).Ok()) << path;
      EXPECT_EQ(Read(path), bytes);
    }
    EXPECT_TRUE(IsFileAt(path) && FileStamp::Of(path).exists && !IsEmptyFile(path)) << path;
    EXPECT_EQ(FileStamp::Of(path).size, 6);
    std::string tail;
    EXPECT_TRUE(TailFile(path).Read(tail, 3));
    EXPECT_EQ(tail, "sec");
  }

  const WideFolder folder;
};

TEST_P(WindowsFilesTest, TakesNamesOfAnyLettersAndFormsOfPaths) {
  const std::string plain = folder.Path("a.mrv");
  std::string slashed = folder.Path("b.mrv");
  for (char& c : slashed) c = c == '\\' ? '/' : c;
  const std::string foreign = folder.Path("Zust\u00E4nde \u72B6\u614B \U0001F600.mrv");
  for (const std::string& path : {plain, slashed, foreign, "\\\\?\\" + folder.Path("c.mrv")}) {
    ExpectWritable(path);
  }
  const std::vector<std::string> names = NamesIn(folder.Path(""));
  EXPECT_EQ(names.size(), 4U);
  EXPECT_NE(std::ranges::find(names, FileNameOf(foreign)), names.end());
  EXPECT_EQ(FindPath(folder.Path("A.MRV")), folder.Path("A.MRV")) << "the system finds it so";
  EXPECT_EQ(FullPath(folder.Path("A.MRV")), FullPath(plain));
  EXPECT_EQ(Put("\\\\?\\UNC\\no.such.server\\share\\a.mrv", "x").stage, Stage::Open);
}

TEST_P(WindowsFilesTest, TakesPathsOfAnyLength) {
  std::string deep = folder.Path("");
  while (deep.size() < 400) deep += "\\" + std::string(60, 'd');
  ASSERT_TRUE(MakePrivateFolder(deep));
  const std::string path = deep + "\\chart.mrv";
  ExpectWritable(path);
  EXPECT_EQ(NamesIn(deep), std::vector<std::string>{"chart.mrv"});
  EXPECT_TRUE(FullPath(path).ends_with("\\chart.mrv"));
  EXPECT_FALSE(FullPath(path).starts_with("\\\\?\\"));
  EXPECT_TRUE(RemoveFile(path));
}

TEST_P(WindowsFilesTest, LeavesWhatAnotherProgramHasOpenOrMayNotBeWritten) {
  const std::string path = folder.Path("a.mrv");
  ASSERT_TRUE(WriteWholeFile(path, "old").Ok());
  const auto expectRefusal = [&](int error, const char* what) {
    const FileResult result = Put(path, "new and longer");
    EXPECT_EQ(result.stage, Stage::Open) << what;
    EXPECT_EQ(result.error, error) << what;
    EXPECT_EQ(NamesIn(folder.Path("")).size(), 1U) << what << ": nothing is left beside it";
  };
  {
    const OpenElsewhere alone(path, 0);
    expectRefusal(EBUSY, "open for one alone");
  }
  {
    const OpenElsewhere reader(path, FILE_SHARE_READ);
    expectRefusal(EBUSY, "open for readers");
    EXPECT_EQ(Put(path, "x").ErrorText(), "Another program has the file open");
  }
  {
    const OpenElsewhere locker(path, kShareAll);
    ASSERT_TRUE(locker.Lock());
    expectRefusal(EBUSY, "locked");
  }
  SetFileAttributesW(WidePath(path).c_str(), FILE_ATTRIBUTE_READONLY);
  expectRefusal(EACCES, "to be read only");
  SetFileAttributesW(WidePath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(Read(path), "old");
  EXPECT_EQ(Put(folder.Path(""), "x").error, EISDIR);
  EXPECT_EQ(Put(folder.Path("none\\a.mrv"), "x").error, ENOENT);
  for (const DWORD share : {DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}, kShareAll}) {
    const OpenElsewhere friendly(path, share);
    EXPECT_TRUE(Put(path, "new").Ok());
  }
  EXPECT_EQ(Read(path), "new");
}

TEST_P(WindowsFilesTest, KeepsWhatAFileIs) {
  const std::string path = folder.Path("a.mrv");
  const std::string twin = folder.Path("twin.mrv");
  ASSERT_TRUE(WriteWholeFile(path, "old").Ok());
  SetFileAttributesW(WidePath(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(Put(path, "hidden").Ok());
  EXPECT_NE(GetFileAttributesW(WidePath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  ASSERT_NE(CreateHardLinkW(WidePath(twin).c_str(), WidePath(path).c_str(), nullptr), 0);
  EXPECT_TRUE(Put(path, "in common").Ok());
  EXPECT_EQ(Read(twin), "in common");
}

TEST_P(WindowsFilesTest, RefusesNamesOfDevices) {
  for (const char* name : {"NUL", "nul.mrv", "CON", "COM1.mrv", "lpt9", "AUX .txt", "PRN:x"}) {
    const FileResult result = Put(folder.Path(name), "bytes that would vanish");
    EXPECT_EQ(result.stage, Stage::Open) << name;
    EXPECT_EQ(result.ErrorText(), "The name is that of a device, not of a file") << name;
    EXPECT_FALSE(IsThere(folder.Path(name))) << name;
  }
  ExpectWritable(folder.Path("NULL.mrv"));
  ExpectWritable(folder.Path("COM.mrv"));
}

/// Room is set aside before a byte is overwritten, so that a disk that is too small says so.
TEST_P(WindowsFilesTest, SaysThatThereIsNoRoom) {
  const std::string path = folder.Path("a.mrv");
  ASSERT_TRUE(WriteWholeFile(path, "old").Ok());
  // More than any disk has, in a view of bytes that nobody reads
  const std::string_view endless(path.data(), std::size_t{1} << 60);
  const FileResult result = Put(path, endless);
  EXPECT_EQ(result.stage, Stage::Reserve);
  EXPECT_EQ(result.error, ENOSPC);
  EXPECT_EQ(Read(path), "old");
  EXPECT_EQ(NamesIn(folder.Path("")).size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(EachWay, WindowsFilesTest,
                         testing::Values(WriteWholeFile, ReplaceWholeFile));

TEST(WindowsFolders, HaveDrivesAndHiddenFiles) {
  const WideFolder folder;
  const std::string hidden = folder.Path("hidden.mrv");
  ASSERT_TRUE(WriteWholeFile(hidden, "").Ok() && WriteWholeFile(folder.Path("plain.mrv"), "").Ok());
  SetFileAttributesW(WidePath(hidden).c_str(), FILE_ATTRIBUTE_HIDDEN);
  std::string seen;
  Folders::Default().Visit(folder.Path(""), [&seen](const Folders::Entry& entry) {
    if (entry.hidden) seen += entry.name;
    return true;
  });
  EXPECT_EQ(seen, "hidden.mrv");
  EXPECT_EQ(FullPath("/no such folder/a.mrv"), AbsolutePath("/no such folder/a.mrv"));
  const std::vector<std::string> drives = Folders::Default().Drives();
  EXPECT_NE(std::ranges::find(drives, AbsolutePath("C:/")), drives.end());
  EXPECT_TRUE(IsFileAt(ProgramPath()) && IsProgramAt(ProgramPath()));
  EXPECT_FALSE(IsProgramAt(hidden));
}

}  // namespace

}  // namespace morvane
