#include "platform/Folders.h"
#include "shell/CDirTreeCtrl.h"
#include "tests/support/ChartTest.h"
#include "tests/support/TreeRows.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

using Rows = std::vector<std::string>;

/// The real file system below a folder of the test's own.
class TestDrive : public Folders {
 public:
  explicit TestDrive(Rows drives) : drives(std::move(drives)) {}

  Rows Drives() override { return drives; }
  void Visit(const std::string& folder, const Visitor& visitor) override {
    Folders::Default().Visit(folder, visitor);
  }
  bool IsFolder(const std::string& path) override { return Folders::Default().IsFolder(path); }

 private:
  Rows drives;
  const UseService<Folders> use{*this};
};

TEST(PosixDirTree, StandsWhateverAFileSystemHolds) {
  const TempFolder root;
  const TestDrive drive{{root.Root().string() + "/"}};
  CDirTreeCtrl tree;
  const std::string latin = "Caf\xe9";
  for (const std::string& name : {latin, std::string("locked/inner")})
    fs::create_directories(root.Path(name));
  root.Write(latin + "/in\\side.mrv", "x");
  fs::create_directory_symlink("..", root.Path("around"));
  fs::create_symlink("self", root.Path("self"));
  fs::permissions(root.Path("locked"), fs::perms::none);
  ASSERT_TRUE(tree.InitTree(true));
  tree.Expand(*tree.FirstItem());
  Rows names;
  for (TreeItem* item = tree.FirstItem()->FirstChild(); item != nullptr; item = item->Next()) {
    names.push_back(item->Text());
    tree.Expand(*item);
  }
  EXPECT_EQ(names, (Rows{"around", latin, "locked"}));
  EXPECT_EQ(tree.PathOfItem(*FindRow(tree, "in\\side.mrv")), root.Path(latin + "/in\\side.mrv"));
  fs::permissions(root.Path("locked"), fs::perms::owner_all);
}

TEST(PosixDirTree, KnowsFoldersApartThatDifferByTheirCapitals) {
  const TempFolder root;
  const TestDrive drive{{root.Root().string() + "/"}};
  CDirTreeCtrl tree;
  for (const char* name : {"Charts/Lift", "charts/Pump"}) fs::create_directories(root.Path(name));
  ASSERT_TRUE(tree.InitTree(true));
  for (const char* name : {"Charts/Lift", "charts/Pump"}) {
    EXPECT_TRUE(tree.SelectPath(root.Path(name))) << name;
    EXPECT_EQ(tree.PathOfItem(*tree.Selected()), root.Path(name));
  }
  EXPECT_TRUE(tree.SelectPath(root.Path("charts/pump")));
  EXPECT_EQ(tree.PathOfItem(*tree.Selected()), root.Path("charts/Pump"));
}

}  // namespace

}  // namespace morvane
