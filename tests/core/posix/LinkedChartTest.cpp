#include "tests/support/OpenCharts.h"
#include "tests/support/SaveDialogs.h"

namespace morvane {

namespace {

TEST(LinkedChartTest, IsTheOneThatItsLinkLeadsTo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mrv", ModelFile::ToDisk(SmallChart()));
  ScriptedMessageBoxes boxes;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  OpenCharts charts(folder.Path("state"));
  SaveDialogs dialogs;
  charts.Open(path);
  CDocument& other = charts.New();
  std::filesystem::create_symlink(path, folder.Path("link.mrv"));
  dialogs.path = folder.Path("link.mrv");
  boxes.Expect("is open in another window");
  EXPECT_FALSE(other.DoFileSaveAs());
}

}  // namespace

}  // namespace morvane
