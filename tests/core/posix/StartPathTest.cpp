#include "shell/InstanceRequest.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

TEST(StartPathTest, KeepsItsBytesAndMeansTheSameElsewhere) {
  const std::filesystem::path before = std::filesystem::current_path();
  const TempFolder folder;
  std::filesystem::current_path(folder.Root());
  EXPECT_EQ(InstanceRequest::ForThisStart("a \xFF.mrv").file, folder.Path("a \xFF.mrv"));
  EXPECT_EQ(InstanceRequest::ForThisStart("/b.mrv").file, "/b.mrv");
  // A folder that is gone gives no path that means the same elsewhere.
  std::filesystem::remove(folder.Root());
  EXPECT_FALSE(InstanceRequest::ForThisStart("c.mrv").CanBeSent());
  std::filesystem::current_path(before);
}

}  // namespace

}  // namespace morvane
