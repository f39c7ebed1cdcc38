#include <cerrno>

#include "platform/InstallFolder.h"
#include "platform/PathSearch.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

TEST(InstallFolder, CutsAtTheLastFolderNamedBin) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\Tools\\Morvane\\bin\\morvane.exe", "C:\\TOOLS\\MORVANE\\"},
      {"/opt/bin/morvane/bin/morvane", "/OPT/BIN/MORVANE/"},
      {"/opt/binary/Bin/deep/morvane", "/OPT/BINARY/"},
      {"/bin/morvane", "/"},
      {"/home/robin/morvane", "/HOME/ROBIN/MORVANE"},
      {"", ""}};
  for (const auto& [program, folder] : cases) EXPECT_EQ(InstallFolderOf(program), folder);
}

TEST(PathSearch, TakesWhatBelongsToTheProgramFromItsOwnFolder) {
  const std::vector<std::string> files = {
      "/home/robin/SRC/Docs/Guide.pdf", "/home/robin/src/bin/_sp.mo", "/home/robin/Src/bin/_sp.mo",
      "/home/robin/Src/Docs/Guide.pdf", "/HOME/ROBIN/SRC/BIN/_SP.MO"};
  const auto namesIn = [&](const std::string& folder) {
    std::vector<std::string> names;
    for (const std::string& file : files) {
      if (!file.starts_with(folder)) continue;
      names.push_back(file.substr(folder.size(), file.find('/', folder.size()) - folder.size()));
    }
    return names;
  };
  const auto isFile = [&](const std::string& path) { return std::ranges::count(files, path) != 0; };
  const PathSearch search("/home/robin/Src/bin/morvane", namesIn, isFile);
  for (const char* name : {"bin/_sp.mo", "BIN\\_SP.MO"}) {
    EXPECT_EQ(search.Find("/HOME/ROBIN/SRC/" + std::string(name)), "/home/robin/Src/bin/_sp.mo");
  }
  EXPECT_EQ(search.Find("/HOME/ROBIN/SRC/Docs/Guide.pdf"), "/home/robin/Src/Docs/Guide.pdf");
  EXPECT_EQ(search.Find("/home/robin/src/bin/_sp.mo"), "/home/robin/src/bin/_sp.mo");
}

TEST(Files, KeepTheirBytes) {
  const TempFolder folder;
  const std::string bytes("a\0b\r\n", 5);
  const std::string path = folder.Path("Docs/Guide.pdf");
  EXPECT_EQ(WriteWholeFile(path, bytes).stage, FileResult::Stage::Open) << "there is no folder";
  EXPECT_EQ(ReplaceWholeFile(path, bytes).stage, FileResult::Stage::Open);
  fs::create_directory(folder.Path("Docs"));
  for (const std::string& text : {bytes, std::string(3'000'000, 'x'), std::string(), bytes}) {
    std::string read;
    EXPECT_TRUE(WriteWholeFile(path, text).Ok());
    EXPECT_TRUE(ReadWholeFile(path, read).Ok());
    EXPECT_EQ(read, text);
  }
  std::string read;
  EXPECT_EQ(ReadWholeFile(folder.Path("Docs"), read).error, EISDIR);
  EXPECT_EQ(ReadWholeFile(folder.Path("none"), read).error, ENOENT);
  EXPECT_EQ(FileNameOf("C:\\a/b\\Chart.mrv"), "Chart.mrv");
  EXPECT_EQ(FolderOf("C:\\a/b\\Chart.mrv"), "C:\\a/b");
  EXPECT_EQ(ExtensionOf("a.b/Chart.MRV"), ".mrv");
  EXPECT_EQ(ExtensionOf("a.b/Chart"), "");
}

}  // namespace

}  // namespace morvane
