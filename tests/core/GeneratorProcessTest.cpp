#include "platform/PosixProcess.h"
#include "tests/support/ChartTest.h"

namespace {

using Words = std::vector<std::string>;

TEST(GeneratorProcessTest, SplitsArgumentsAtBlanks) {
  const struct {
    const char* text;
    Words words;
  } cases[] = {{"", {}},
               {"   ", {}},
               {" -d  -g\t/a/b.mrv ", {"-d", "-g", "/a/b.mrv"}},
               {"/My charts/lift.mrv", {"/My", "charts/lift.mrv"}},
               {"\"/My charts/lift.mrv\" x", {"/My charts/lift.mrv", "x"}},
               {"a\"b c\"d", {"ab cd"}},
               {"\"\" x", {"", "x"}},
               {"\"open to the end", {"open to the end"}},
               {"C:\\a\\\"b\"", {"C:\\a\\b"}}};
  for (const auto& c : cases) EXPECT_EQ(SplitArguments(c.text), c.words) << c.text;
}

class GeneratorProgramTest : public testing::Test {
 protected:
  void Add(const std::string& name, const char* text = "#!/bin/sh\n", bool runs = true) {
    const std::string path = folder.Path(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    WriteWholeFile(path, text);
    std::filesystem::permissions(path, std::filesystem::perms(runs ? 0755 : 0644));
  }
  /// What is found for a command line in the folder, the program without the folder.
  std::pair<std::string, Words> Split(const std::string& line) const {
    const CommandParts parts = SplitCommandLine(folder.Path(line));
    const std::string root = folder.Path("");
    return {parts.program.substr(std::min(root.size(), parts.program.size())), parts.arguments};
  }

  const TempFolder folder;
};

TEST_F(GeneratorProgramTest, IsTheShortestPrefixThatCanBeRun) {
  using Found = std::pair<std::string, Words>;
  Add("bin/mrv2cpp.exe");
  Add("my tools/bin/run it.exe");
  Add("my/readme");
  Add("data", "", false);
  Add("data file");
  EXPECT_EQ(Split("bin/mrv2cpp.exe -d x.mrv"), Found("bin/mrv2cpp.exe", {"-d", "x.mrv"}));
  EXPECT_EQ(Split("bin/mrv2cpp -d"), Found("bin/mrv2cpp.exe", {"-d"}));
  EXPECT_EQ(Split("BIN\\MRV2CPP.EXE"), Found("bin/mrv2cpp.exe", {}));
  EXPECT_EQ(Split("my tools/bin/run it.exe a b"), Found("my tools/bin/run it.exe", {"a", "b"}))
      << "a folder is no program";
  EXPECT_EQ(Split("my tools/bin/run it a"), Found("my tools/bin/run it.exe", {"a"}));
  EXPECT_EQ(Split("data file x"), Found("data file", {"x"})) << "nor is what can't be run";
  EXPECT_EQ(Split("none -d x"), Found("", {}));
  Add("my.exe");
  EXPECT_EQ(Split("my tools/bin/run it.exe"), Found("my.exe", {"tools/bin/run", "it.exe"}));
  const CommandParts quoted = SplitCommandLine('"' + folder.Path("my tools/bin/run it") + "\" a");
  EXPECT_EQ(quoted.program, folder.Path("my tools/bin/run it.exe"));
  EXPECT_EQ(quoted.arguments, Words{"a"});
  for (const char* line : {"", " ", "\"", "\"\"", "\"open"}) {
    EXPECT_EQ(SplitCommandLine(line).program, "") << line;
  }
}

TEST_F(GeneratorProgramTest, IsRunWithoutAShell) {
  Add("nothing", "echo no interpreter\n");
  Add("script", "#!/bin/sh\nprintf '%s,' \"$@\"\n");
  PosixProcesses processes;
  EXPECT_EQ(processes.Start(folder.Path("nothing"), false), nullptr);
  const auto process = processes.Start(folder.Path("script $HOME `ls` * ;"), false);
  ASSERT_NE(process, nullptr);
  std::string output;
  char chunk[16];
  while (const std::size_t count = process->Read(Process::Stream::Output, chunk)) {
    output.append(chunk, count);
  }
  EXPECT_EQ(output, "$HOME,`ls`,*,;,");
  EXPECT_TRUE(process->WaitForEnd(std::chrono::seconds(30)));
}

}  // namespace
