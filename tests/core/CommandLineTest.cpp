#include "platform/Pictures.h"
#include "shell/CommandLine.h"
#include "tests/support/ChartTest.h"

namespace {

/// Makes pictures that tell their size.
class FakePictures : public Pictures {
 public:
  std::unique_ptr<CDC> ReferenceDC() override { return std::make_unique<CNullDC>(); }
  std::optional<std::string> MakePng(SIZE size, const Paint& paint) override {
    CNullDC dc;
    paint(dc);
    return "png " + std::to_string(size.cx) + "x" + std::to_string(size.cy) +
           (dc.IsPrinting() ? " printed" : "");
  }
  std::optional<std::string> MakePdf(SIZE, const Paint&) override { return std::nullopt; }
};

class CommandLineTest : public ::testing::Test {
 protected:
  CommandLineTest() { WriteWholeFile(Chart(), ModelFile::ToDisk(SmallChart())); }

  std::string Chart() const { return folder.Path("Small.mrv"); }
  int Run(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return CommandLine::Parse(arguments).Run(out, err);
  }
  std::string Read(const std::string& name) const {
    std::string bytes;
    ReadWholeFile(folder.Path(name), bytes);
    return bytes;
  }

  TempFolder folder;
  FakePictures pictures;
  const UseService<Pictures> use{pictures};
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(CommandLineTest, WhatOpensAWindow) {
  EXPECT_FALSE(CommandLine::Parse({}).IsJob());
  EXPECT_FALSE(CommandLine::Parse({"a.mrv"}).IsJob());
  EXPECT_EQ(CommandLine::Parse({"a.mrv"}).File(), "a.mrv");
}

TEST_F(CommandLineTest, WrongUseExitsWithTwo) {
  const std::vector<std::vector<std::string>> cases = {{"a.mrv", "b.mrv"},
                                                       {"--convert", "x.mrv"},
                                                       {"--export"},
                                                       {"--help", "me"},
                                                       {"--frobnicate"},
                                                       {"-x", "y", "z"},
                                                       {"--convert", "a", "b", "c"},
                                                       {"--export", folder.Path("x.gif"), Chart()}};
  for (const auto& arguments : cases) {
    EXPECT_EQ(Run(arguments), 2) << arguments[0];
    EXPECT_EQ(out.str(), "");
    EXPECT_NE(err.str(), "");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.Path("x.gif")));
}

TEST_F(CommandLineTest, ConvertWritesThePresentVersion) {
  ASSERT_EQ(Run({"--convert", folder.Path("out.mrv"), Chart()}), 0) << err.str();
  EXPECT_EQ(out.str() + err.str(), "");
  EXPECT_EQ(Read("out.mrv"), Read("Small.mrv"));
  // In place, too.
  ASSERT_EQ(Run({"--convert", Chart(), Chart()}), 0);
  EXPECT_EQ(Read("Small.mrv"), Read("out.mrv"));
  // A file of no length is a new chart.
  WriteWholeFile(folder.Path("empty.mrv"), "");
  ASSERT_EQ(Run({"--convert", folder.Path("out.mrv"), folder.Path("empty.mrv")}), 0);
  EXPECT_EQ(Read("out.mrv"), ModelFile::ToDisk(ChartText("")));
}

TEST_F(CommandLineTest, FailuresNameFileAndReasonAndWriteNothing) {
  WriteWholeFile(folder.Path("bad.mrv"), "hello");
  const struct {
    const char* file;
    const char* reason;
  } cases[] = {{"bad.mrv", "Not a valid Morvane model file"},
               {"none.mrv", "No such file or directory"}};
  for (const auto& c : cases) {
    for (const char* job : {"--convert", "--export"}) {
      const std::string output = folder.Path(job == std::string("--convert") ? "o.mrv" : "o.svg");
      EXPECT_EQ(Run({job, output, folder.Path(c.file)}), 1);
      EXPECT_EQ(err.str(), folder.Path(c.file) + ": " + c.reason + "\n");
      EXPECT_FALSE(std::filesystem::exists(output));
    }
  }
  EXPECT_EQ(Run({"--convert", folder.Path("no/o.mrv"), Chart()}), 1);
  EXPECT_EQ(err.str(), folder.Path("no/o.mrv") + ": Unable to open for writing\n");
  EXPECT_EQ(Run({"--convert", "/dev/full", Chart()}), 1);
  EXPECT_EQ(err.str(), "/dev/full: No space left on device\n");
  EXPECT_EQ(Run({"--export", folder.Path("o.pdf"), Chart()}), 1);
  EXPECT_NE(err.str().find("too large"), std::string::npos);
}

TEST_F(CommandLineTest, PicturesShowTheWholeChartAtNormalSize) {
  // The note reaches (52, 16), the state (27, 32), and the file's zoom is another.
  std::string chart = SmallChart();
  chart.replace(chart.find("\n6\n"), 3, "\n13\n");
  WriteWholeFile(Chart(), ModelFile::ToDisk(chart));
  ASSERT_EQ(Run({"--export", folder.Path("o.png"), Chart()}), 0) << err.str();
  EXPECT_EQ(Read("o.png"), "png 318x198 printed");
  ASSERT_EQ(Run({"--export", folder.Path("o.SVG"), Chart()}), 0) << err.str();
  const std::string svg = Read("o.SVG");
  EXPECT_NE(svg.find("width=\"318\" height=\"198\""), std::string::npos);
  EXPECT_NE(svg.find(">lines</text>"), std::string::npos);
  Run({"--export", folder.Path("again.svg"), Chart()});
  EXPECT_EQ(Read("again.svg"), svg);
}

}  // namespace
