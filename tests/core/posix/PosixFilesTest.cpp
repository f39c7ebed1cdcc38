#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "platform/InstallFolder.h"
#include "platform/Process.h"
#include "platform/SystemError.h"
#include "tests/support/ChartTest.h"
#include "tests/support/FullDisk.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

TEST(Files, AreFoundWithoutRegardToCaseAsTheyAreWanted) {
  const TempFolder folder;
  for (const char* name : {"SRC", "src/Tool", "src/bin", "Src/bin"}) {
    fs::create_directories(folder.Path(name));
  }
  const std::string text = folder.Write("src/bin/TOOL", "no program");
  const std::string tool = folder.Write("src/bin/tool", "#!/bin/sh\n");
  fs::permissions(tool, fs::perms::owner_all);
  EXPECT_EQ(FindPath(folder.Path("SRC\\BIN\\Tool")), text);
  EXPECT_EQ(FindPath(folder.Path("SRC/BIN/")), folder.Path("Src/bin/"));
  EXPECT_EQ(FindPath(folder.Path("SRC/none")), folder.Path("SRC/none"));
  const CommandParts parts = SplitCommandLine(folder.Path("SRC/BIN\\TOOL") + " one two");
  EXPECT_EQ(parts.program, tool);
  EXPECT_EQ(parts.arguments, (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(SplitCommandLine(folder.Path("SRC/TOOL")).program, "") << "a folder is no program";
  // The program's own folder
  const std::string own = FindPath(GetInstallFolder() + "bin/");
  EXPECT_EQ(own, FolderOf(ProgramPath()) + "/");
}

TEST(Files, OfDevicesAreNotReadToAnEndThatTheyHaveNot) {
  std::string read;
  EXPECT_EQ(ReadWholeFile("/dev/zero", read).error, EINVAL);
}

TEST(SystemError, HasTheWordsOfTheSystem) {
  for (const SystemErrorWords& words : SystemErrors()) {
    EXPECT_EQ(words.english, std::strerror(words.error));
  }
}

/// What both ways to write a file have in common.
class WrittenFile : public testing::TestWithParam<decltype(&WriteWholeFile)> {
 protected:
  FileResult Put(const std::string& path, std::string_view bytes) {
    return GetParam()(path, bytes);
  }
  std::ptrdiff_t Count() const { return std::distance(fs::directory_iterator(folder.Root()), {}); }

  const TempFolder folder;
};

TEST_P(WrittenFile, KeepsWhatItIsAndWhoseItIs) {
  const std::string path = folder.Write("out", "old and longer");
  folder.Write("out.new", "a stranger's");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  // Only the superuser gives a file away.
  const bool canGive = geteuid() == 0;
  ASSERT_EQ(canGive ? chown(path.c_str(), 12345, 23456) : 0, 0);
  const struct stat before = StatusOf(path);
  EXPECT_TRUE(Put(path, "new").Ok());
  const struct stat after = StatusOf(path);
  EXPECT_EQ(folder.Read("out"), "new");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
  const mode_t mask = umask(027);
  EXPECT_TRUE(Put(folder.Path("fresh"), "").Ok());
  umask(mask);
  EXPECT_EQ(StatusOf(folder.Path("fresh")).st_mode & 07777U, 0640U);
  EXPECT_EQ(folder.Read("out.new"), "a stranger's");
  EXPECT_EQ(Count(), 3);
}

TEST_P(WrittenFile, FollowsLinksAndKeepsOtherNames) {
  fs::create_directory(folder.Path("deep"));
  folder.Write("deep/out", "old");
  fs::create_symlink("../second", folder.Path("deep/first"));
  fs::create_symlink(folder.Path("deep/out"), folder.Path("second"));
  fs::create_symlink("deep/fresh", folder.Path("dangling"));
  fs::create_symlink("loop", folder.Path("loop"));
  EXPECT_TRUE(Put(folder.Path("deep/first"), "through links").Ok());
  EXPECT_EQ(folder.Read("deep/out"), "through links");
  EXPECT_TRUE(Put(folder.Path("dangling"), "made").Ok());
  EXPECT_EQ(folder.Read("deep/fresh"), "made");
  EXPECT_EQ(Put(folder.Path("loop"), "x").error, ELOOP);
  for (const char* name : {"deep/first", "second", "dangling", "loop"}) {
    EXPECT_TRUE(fs::is_symlink(folder.Path(name))) << name;
  }
  fs::create_hard_link(folder.Path("deep/out"), folder.Path("twin"));
  EXPECT_TRUE(Put(folder.Path("deep/out"), "in common").Ok());
  EXPECT_EQ(folder.Read("twin"), "in common");
  EXPECT_EQ(StatusOf(folder.Path("twin")).st_nlink, 2U);
  EXPECT_EQ(Count(), 5);
}

TEST_P(WrittenFile, IsNotWrittenWhereNobodyMayOrNothingFits) {
  const std::string path = folder.Write("out", std::string(50, 'o'));
  {
    const FullDisk full;
    const FileResult result = Put(path, std::string(FullDisk::kBytes + 1, 'n'));
    EXPECT_EQ(result.stage, FileResult::Stage::Reserve);
    EXPECT_EQ(result.error, EFBIG);
    EXPECT_FALSE(Put(folder.Path("fresh"), std::string(FullDisk::kBytes + 1, 'n')).Ok());
  }
  EXPECT_EQ(folder.Read("out"), std::string(50, 'o'));
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  const FileResult result = Put(path, "new");
  EXPECT_EQ(result.stage, FileResult::Stage::Open);
  EXPECT_EQ(result.error, EACCES);
  EXPECT_EQ(folder.Read("out"), std::string(50, 'o'));
  EXPECT_EQ(Put(folder.Root().string(), "x").error, EISDIR);
  EXPECT_EQ(Put("/dev/full", "x").error, ENOSPC);
  EXPECT_EQ(Count(), 1);
}

TEST_P(WrittenFile, TakesLongNamesPipesAndDevices) {
  const std::string name(255, 'n');
  for (const char* bytes : {"one", "two"}) {
    EXPECT_TRUE(Put(folder.Path(name), bytes).Ok());
    EXPECT_EQ(folder.Read(name), bytes);
  }
  EXPECT_TRUE(Put("/dev/null", "x").Ok());
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string got;
  std::thread reader([&] { got = folder.Read("pipe"); });
  EXPECT_TRUE(Put(pipe, "through").Ok());
  reader.join();
  EXPECT_EQ(got, "through");
  EXPECT_EQ(Count(), 2);
}

INSTANTIATE_TEST_SUITE_P(EachWay, WrittenFile, testing::Values(WriteWholeFile, ReplaceWholeFile));

}  // namespace

}  // namespace morvane
