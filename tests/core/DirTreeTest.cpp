#include "platform/FileSystem.h"
#include "platform/Folders.h"
#include "shell/CDirTreeCtrl.h"
#include "tests/support/ChartTest.h"
#include "tests/support/TreeRows.h"

namespace morvane {

namespace fs = std::filesystem;

namespace {

using Rows = std::vector<std::string>;

/// The real file system below one or more drives of a test's own.
class TestDrives : public Folders {
 public:
  explicit TestDrives(Rows drives) : drives(std::move(drives)) {}

  Rows Drives() override { return drives; }
  void Visit(const std::string& folder, const Visitor& visitor) override {
    ++visits;
    Folders::Default().Visit(folder, visitor);
  }
  bool IsFolder(const std::string& path) override { return Folders::Default().IsFolder(path); }

  Rows drives;
  int visits = 0;

 private:
  const UseService<Folders> use{*this};
};

class DirTree : public testing::Test {
 protected:
  void Folder(const std::string& name) { fs::create_directories(root.Path(name)); }
  /// What the tree shows below the drive.
  Rows Below() const {
    Rows rows = TreeRows(tree, false);
    rows.erase(rows.begin());
    return rows;
  }
  void Init(bool files = true) {
    ASSERT_TRUE(tree.InitTree(files));
    tree.Expand(*tree.FirstItem());
  }

  TempFolder root;
  TestDrives drives{{root.Root().string() + "/"}};
  CDirTreeCtrl tree;
};

TEST_F(DirTree, FoldersComeBeforeChartFilesEachInOrder) {
  for (const char* name : {"beta", "Alpha", "_x", "empty"}) Folder(name);
  for (const char* name : {"Zeta.mrv", "alpha.MRV", "notes.txt", "beta/text.txt", "Alpha/.hidden",
                           "mrv", "_x/in.mrv"}) {
    root.Write(name, "x");
  }
  Init();
  EXPECT_EQ(tree.FirstItem()->Text(), root.Root().string());
  EXPECT_EQ(drives.visits, 6) << "of a folder only whether it has entries";
  // Behind the button of a folder with nothing but other files there is nothing.
  EXPECT_EQ(Below(), (Rows{"  _x", "    ", "  Alpha", "  beta", "    ", "  empty", "  alpha.MRV",
                           "  Zeta.mrv"}));
  tree.Expand(*FindRow(tree, "beta"));
  EXPECT_EQ(FindRow(tree, "beta")->ChildCount(), 0);
  // A double click opens what has no children.
  tree.OnLButtonDblClk();
  Rows opened;
  tree.OpenCallback = [&](const std::string& path) { opened.push_back(path); };
  for (const char* name : {"", "_x", "empty", "alpha.MRV"}) {
    if (*name != '\0') tree.Select(FindRow(tree, name));
    tree.OnLButtonDblClk();
  }
  EXPECT_EQ(opened, (Rows{root.Path("empty"), root.Path("alpha.MRV")}));
  Init(false);
  EXPECT_EQ(Below(), (Rows{"  _x", "  Alpha", "  beta", "  empty"}));
}

TEST_F(DirTree, ReadsAFolderAtEachOpening) {
  Folder("deep/inner");
  Init();
  TreeItem& deep = *FindRow(tree, "deep");
  tree.Expand(deep);
  tree.Select(FindRow(tree, "inner"));
  tree.Collapse(deep);
  EXPECT_EQ(tree.Selected(), &deep);
  EXPECT_EQ(Below(), (Rows{"  deep", "    "}));
  root.Write("deep/new.mrv", "x");
  tree.Expand(deep);
  EXPECT_EQ(Below(), (Rows{"  +deep", "    inner", "    new.mrv"}));
  fs::remove_all(root.Path("deep"));
  tree.Collapse(deep);
  tree.Expand(deep);
  EXPECT_EQ(Below(), (Rows{"  +deep"}));
}

TEST_F(DirTree, SelectsAFolderByItsPath) {
  Folder("Charts/Lift");
  root.Write("Charts/Lift/Deep.mrv", "x");
  ASSERT_TRUE(tree.InitTree(true));
  for (const char* path : {"Charts/Lift/Deep.mrv", "gone", ""}) {
    EXPECT_FALSE(tree.SelectPath(*path != '\0' ? root.Path(path) : "")) << path;
    EXPECT_EQ(tree.Selected(), nullptr);
    EXPECT_EQ(Below(), Rows{"  "});
  }
  const std::pair<const char*, const char*> cases[] = {{"Charts/LIFT", "Charts/Lift"},
                                                       {"Charts/Lift/", "Charts/Lift"},
                                                       {"Charts\\lift", "Charts/Lift"}};
  for (const auto& [path, selected] : cases) {
    EXPECT_TRUE(tree.SelectPath(root.Path(path))) << path;
    EXPECT_EQ(tree.PathOfItem(*tree.Selected()), root.Path(selected)) << path;
  }
  EXPECT_TRUE(tree.SelectPath(root.Root().string()));
  EXPECT_EQ(tree.Selected(), tree.FirstItem());
  // What was open is read anew.
  Folder("Charts/Lift/later");
  EXPECT_TRUE(tree.SelectPath(root.Path("Charts/Lift")));
  EXPECT_NE(FindRow(tree, "later"), nullptr);
}

TEST_F(DirTree, PathsBeginAtTheInnermostDrive) {
  Folder("media/stick/charts");
  const std::string top = root.Root().root_path().string();
  drives.drives = {top, root.Path("media/stick")};
  ASSERT_TRUE(tree.InitTree(true));
  EXPECT_FALSE(tree.FirstItem()->Text().empty());
  EXPECT_TRUE(top.starts_with(tree.FirstItem()->Text()));
  EXPECT_EQ(AbsolutePath(tree.PathOfItem(*tree.FirstItem())), AbsolutePath(top));
  EXPECT_TRUE(tree.SelectPath(root.Path("media/stick/charts")));
  EXPECT_EQ(tree.Selected()->Parent()->Text(), root.Path("media/stick"));
  EXPECT_TRUE(tree.SelectPath(root.Path("media")));
  EXPECT_EQ(tree.PathOfItem(*tree.Selected()), root.Path("media"));
  drives.drives.clear();
  EXPECT_FALSE(tree.InitTree(true));
  EXPECT_EQ(tree.Count(), 0U);
}

TEST(Folders, FindsTheVolumesOfAUser) {
  EXPECT_EQ(
      Folders::VolumesOf("proc /proc proc rw 0 0\n/dev/sda1 / ext4 rw 0 0\n"
                         "/dev/sdc /run/media/me/b vfat rw\n/dev/sdb /media/my\\040stick\\134 "
                         "vfat rw\n/dev/sdc /run/media/me/b vfat rw\nnone /media/t tmpfs "
                         "rw\n/dev/sdd /mnt ext4\nx"),
      (Rows{"/media/my stick\\", "/run/media/me/b"}));
}

}  // namespace

}  // namespace morvane
