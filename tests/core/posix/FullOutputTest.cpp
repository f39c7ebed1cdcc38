#include <fstream>

#include "shell/CommandLine.h"
#include "surface/ChartPicture.h"
#include "tests/support/ChartTest.h"
#include "tests/support/SizedPictures.h"

namespace morvane {

namespace {

constexpr const char* kFull = "/dev/full";

class FullOutputTest : public testing::Test {
 protected:
  const TempFolder folder;
  const std::string chart = folder.Write("Small.mrv", ModelFile::ToDisk(SmallChart()));
  SizedPictures pictures;
};

TEST_F(FullOutputTest, IsAFailureOfAJob) {
  std::ofstream full(kFull);
  std::ostringstream said;
  EXPECT_EQ(CommandLine::Parse({"--version"}).Run(full, said), 1);
  EXPECT_EQ(said.str(), "standard output: No space left on device\n");
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(CommandLine::Parse({"--convert", kFull, chart}).Run(out, err), 1);
  EXPECT_EQ(err.str(), "/dev/full: No space left on device\n");
  EXPECT_TRUE(std::filesystem::exists(kFull));
}

TEST_F(FullOutputTest, IsAFailureOfAPictureAndAnOpenFileStaysWhatItWas) {
  const auto view = LoadChart(SmallChart());
  folder.Write("o.svg", "old");
  // Who has it open keeps the file that it was.
  std::ifstream former(folder.Path("o.svg"));
  EXPECT_EQ(ChartPicture(*view).Save(folder.Path("o.svg")), "");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(former), {}), "old");
  EXPECT_NE(folder.Read("o.svg"), "old");
  std::filesystem::create_symlink(kFull, folder.Path("full.svg"));
  EXPECT_EQ(ChartPicture(*view).Save(folder.Path("full.svg")), "No space left on device");
}

}  // namespace

}  // namespace morvane
