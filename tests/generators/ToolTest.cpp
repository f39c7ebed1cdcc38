#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

#include "generators/Tool.h"
#include "generators/ToolArguments.h"
#include "tests/generators/rig/RandomChart.h"
#include "tests/support/TempFolder.h"

namespace morvane {

namespace {

namespace fs = std::filesystem;
using Job = ToolArguments::Job;

/// What a call of a tool gave.
struct Called {
  int status = 0;
  std::string out;
  std::string err;
};

Called Call(const std::vector<std::string>& arguments,
            TargetLanguage language = TargetLanguage::C) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = Tool(language).Run(arguments, out, err);
  return {status, out.str(), err.str()};
}

std::vector<std::string> FilesIn(const TempFolder& folder, const std::string& name = "") {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.Root() / name)) {
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

std::string Chart() { return RandomChart(3).ModelText("Chart"); }

/// A chart whose one state nothing leads to.
std::string BrokenChart() {
  return "9999 4 1\n6\nBEGIN DATA\nBEGIN GenericState 105\n105 10\n0 0 20 20\n1\nIdle\n0 0 0\n"
         "0\nTEXTBEGIN\n\nTEXTEND\n0\nTEXTBEGIN\n\nTEXTEND\nEND DATA\n" +
         Chart().substr(Chart().find("END DATA\n") + 9);
}

TEST(ToolArguments, AreRead) {
  const struct {
    std::vector<std::string> arguments;
    Job job;
    std::string model;
    std::string folder;
    bool fromDesigner;
    bool debug;
  } cases[] = {
      {{"a.mrv"}, Job::Generate, "a.mrv", "", false, false},
      {{"-d", "-g", "/my", "charts/a", "b.mrv"},
       Job::Generate,
       "/my charts/a b.mrv",
       "",
       true,
       true},
      {{"-o", "out dir", "--check", "a.mrv"}, Job::Check, "a.mrv", "out dir", false, false},
      {{"--", "-g"}, Job::Generate, "-g", "", false, false},
      {{}, Job::WrongUse, "", "", false, false},
      {{"-o"}, Job::WrongUse, "", "", false, false},
      {{"-x", "a.mrv"}, Job::WrongUse, "", "", false, false},
  };
  for (const auto& c : cases) {
    const ToolArguments parsed = ToolArguments::Parse(c.arguments);
    const std::string shown = testing::PrintToString(c.arguments);
    EXPECT_EQ(parsed.job, c.job) << shown;
    EXPECT_EQ(parsed.fromDesigner, c.fromDesigner) << shown;
    EXPECT_EQ(parsed.debug, c.debug) << shown;
    if (c.job == Job::WrongUse) continue;
    EXPECT_EQ(parsed.model, c.model) << shown;
    EXPECT_EQ(parsed.folder, c.folder) << shown;
  }
}

TEST(Tool, WritesTheFilesOfItsLanguage) {
  const std::pair<TargetLanguage, std::vector<std::string>> cases[] = {
      {TargetLanguage::C, {"my chart.c", "my chart.h"}},
      {TargetLanguage::Cpp, {"Chart.cpp", "Chart.h"}},
      {TargetLanguage::CSharp, {"Chart.cs"}},
      {TargetLanguage::Java, {"Chart.java"}},
      {TargetLanguage::Xml, {"my chart.scxml"}}};
  for (const auto& [language, files] : cases) {
    const TempFolder folder;
    fs::create_directory(folder.Path("code"));
    const std::string model = folder.Write("my chart.mrv", Chart());
    const Called called = Call({"-o", folder.Path("code"), model}, language);
    EXPECT_EQ(called.status, 0) << called.err;
    EXPECT_EQ(called.out, "");
    EXPECT_EQ(FilesIn(folder, "code"), files);
  }
}

TEST(Tool, TellsTheDesignerEverythingOnOneStream) {
  const TempFolder folder;
  const std::string model = folder.Write("a b.mrv", Chart());
  // A path with a blank comes in pieces.
  const Called called = Call({"-d", "-g", folder.Path("a"), "b.mrv"});
  EXPECT_EQ(called.status, 0);
  EXPECT_EQ(called.err, "");
  EXPECT_TRUE(called.out.ends_with("Wrote " + folder.Path("a b.h") + "\nWrote " +
                                   folder.Path("a b.c") + "\n"))
      << called.out;
  EXPECT_NE(folder.Read("a b.c").find("#line "), std::string::npos);
}

TEST(Tool, WritesNothingForAnErrorAndSaysWhereItIs) {
  const TempFolder folder;
  const std::string model = folder.Write("broken.mrv", BrokenChart());
  for (const std::string option : {"-g", "--check", "-d"}) {
    const Called called = Call({option, model});
    const std::string& said = option == "-d" ? called.out : called.err;
    EXPECT_EQ(called.status, 1);
    EXPECT_EQ((option == "-d" ? called.err : called.out), "");
    EXPECT_NE(said.find("broken.mrv"), std::string::npos) << said;
    EXPECT_NE(said.find(": error: "), std::string::npos) << said;
    EXPECT_TRUE(said.ends_with("\n1 error\n")) << said;
    EXPECT_EQ(FilesIn(folder), std::vector<std::string>{"broken.mrv"});
  }
  EXPECT_EQ(Call({folder.Path("gone.mrv")}).status, 1);
  EXPECT_EQ(Call({folder.Root().string()}).status, 1);
}

TEST(Tool, LeavesWhatWouldNotChange) {
  const TempFolder folder;
  const std::string model = folder.Write("chart.mrv", Chart());
  ASSERT_EQ(Call({"-o", folder.Root().string(), model}).status, 0);
  const std::string code = folder.Read("chart.c");
  // Some libraries know no parts of a second.
  const fs::file_time_type longAgo =
      std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now()) -
      std::chrono::hours(24);
  fs::last_write_time(folder.Path("chart.c"), longAgo);
  folder.Write("chart.h", "of something else");
  EXPECT_EQ(Call({"-o", folder.Root().string(), "--check", model}).status, 0);
  EXPECT_EQ(folder.Read("chart.h"), "of something else");
  ASSERT_EQ(Call({"-o", folder.Root().string(), model}).status, 0);
  EXPECT_EQ(fs::last_write_time(folder.Path("chart.c")), longAgo);
  EXPECT_EQ(folder.Read("chart.c"), code);
  EXPECT_NE(folder.Read("chart.h"), "of something else");
}

}  // namespace

}  // namespace morvane
