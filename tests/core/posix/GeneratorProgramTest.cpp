#include "platform/posix/PosixProcess.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

class GeneratorProgramTest : public testing::Test {
 protected:
  void Add(const std::string& name, const char* text = "#!/bin/sh\n", bool runs = true) {
    std::filesystem::create_directories(std::filesystem::path(folder.Path(name)).parent_path());
    std::filesystem::permissions(folder.Write(name, text),
                                 std::filesystem::perms(runs ? 0755 : 0644));
  }
  /// The program that is found for a command line in the folder, without the folder, and the
  /// arguments, each behind a bar.
  std::string Split(const std::string& line, const std::string& quote = "") const {
    const CommandParts parts = SplitCommandLine(quote + folder.Path(line));
    std::string found =
        parts.program.substr(std::min(folder.Path("").size(), parts.program.size()));
    for (const std::string& argument : parts.arguments) found += "|" + argument;
    return found;
  }

  const TempFolder folder;
};

TEST_F(GeneratorProgramTest, IsTheShortestPrefixThatCanBeRun) {
  Add("bin/mrv2cpp.exe");
  Add("my tools/bin/run it.exe");
  Add("my/readme");
  Add("data", "", false);
  Add("data file");
  EXPECT_EQ(Split("bin/mrv2cpp -d x.mrv"), "bin/mrv2cpp.exe|-d|x.mrv");
  EXPECT_EQ(Split("BIN\\MRV2CPP.EXE"), "bin/mrv2cpp.exe");
  EXPECT_EQ(Split("my tools/bin/run it.exe a b"), "my tools/bin/run it.exe|a|b")
      << "a folder is no program";
  EXPECT_EQ(Split("data file x"), "data file|x") << "nor is what can't be run";
  EXPECT_EQ(Split("none -d x"), "");
  EXPECT_EQ(Split("my tools/bin/run it\" a", "\""), "my tools/bin/run it.exe|a");
  Add("my.exe");
  EXPECT_EQ(Split("my tools/bin/run it.exe"), "my.exe|tools/bin/run|it.exe");
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

}  // namespace morvane
