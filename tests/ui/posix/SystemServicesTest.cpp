#include "persistence/RecentFiles.h"
#include "platform/qt/posix/QtClipboard.h"
#include "platform/qt/posix/QtProfile.h"
#include "tests/support/FullDisk.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

TEST(QtClipboardTest, KeepsAllBytesUnderAllFormats) {
  QtClipboard clipboard;
  const std::string chart("BEGIN\0\xFF\n\0", 9);
  EXPECT_EQ(clipboard.Put({{"MORVANE_FORMAT", chart}, {"image/x-emf", std::string("\0\1", 2)}}),
            ClipboardError::None);
  ClipboardError error = ClipboardError::Open;
  EXPECT_EQ(clipboard.Get("MORVANE_FORMAT", error), chart);
  EXPECT_EQ(error, ClipboardError::None);
  EXPECT_EQ(clipboard.Get("image/x-emf", error), std::string("\0\1", 2));
  EXPECT_TRUE(clipboard.IsAvailable("MORVANE_FORMAT"));
  EXPECT_EQ(QtClipboard::MimeTypeOf("MORVANE_FORMAT"),
            "application/x-qt-windows-mime;value=\"MORVANE_FORMAT\"");
  EXPECT_EQ(clipboard.Put({{"text/plain", "other"}}), ClipboardError::None);
  EXPECT_FALSE(clipboard.IsAvailable("MORVANE_FORMAT"));
  EXPECT_EQ(clipboard.Get("MORVANE_FORMAT", error), std::nullopt);
  EXPECT_EQ(error, ClipboardError::None);
}

class QtProfileTest : public testing::Test {
 protected:
  const TempFolder folder;
  const std::string path = folder.Path("settings.ini");
};

TEST_F(QtProfileTest, ComesBackFromTheFileAndAWrongKindGivesTheFallback) {
  const std::string notUtf8 = "/home/caf\xE9, a;b=\"c\" %41";
  WriteWholeFile(path,
                 "[Settings]\nWord=abc\nEmpty=\nLong=99999999999\nFloat=1.5\nList=1, 2\nGood=12\n"
                 "Point=@Point(1 2)\nBroken=@Variant(xyz)\n");
  {
    QtProfile profile(path);
    profile.Write("Settings", {{"FontSize", "-2147483648"}, {"FontName", "Verdana, \xC3\xA4"}});
    profile.WriteString("Recent File List", "File1", notUtf8);
    profile.WriteString("", "Language", "eng");
  }
  QtProfile profile(path);
  EXPECT_EQ(profile.GetInt("Settings", "FontSize", 0), -2147483647 - 1);
  EXPECT_EQ(profile.GetString("Settings", "FontName", ""), "Verdana, \xC3\xA4");
  EXPECT_EQ(profile.GetString("Recent File List", "File1", ""), notUtf8);
  EXPECT_EQ(profile.GetString("", "Language", ""), "eng");
  for (const char* key : {"Word", "Empty", "Long", "Float", "List", "Point", "Broken", "None"}) {
    EXPECT_EQ(profile.GetInt("Settings", key, 7), 7) << key;
  }
  EXPECT_EQ(profile.GetInt("Settings", "Good", 7), 12);
  EXPECT_EQ(profile.GetString("Settings", "List", "f"), "1, 2");
  EXPECT_EQ(profile.GetString("Settings", "Point", "f"), "f");
  std::string text;
  ASSERT_TRUE(ReadWholeFile(path, text).Ok());
  EXPECT_NE(text.find("FontSize=-2147483648"), std::string::npos);
}

TEST_F(QtProfileTest, AFullDiskIsSaidOnceAndLeavesTheOldSettings) {
  const std::string before = "[Settings]\nFontSize=80\n";
  WriteWholeFile(path, before);
  ScriptedMessageBoxes boxes;
  QtProfile profile(path);
  {
    const FullDisk full;
    boxes.Expect("The settings cannot be saved\n\n" + path);
    for (const char letter : {'x', 'y'}) {
      profile.WriteString("Settings", "FontName", std::string(5000, letter));
    }
    EXPECT_EQ(profile.GetString("Settings", "FontName", "")[0], 'y') << "it holds for this run";
    std::string after;
    ReadWholeFile(path, after);
    EXPECT_EQ(after, before);
  }
  profile.WriteString("Settings", "FontSize", "90");
  EXPECT_EQ(profile.GetString("Settings", "FontName", "")[0], 'y');
  EXPECT_EQ(QtProfile(path).GetString("Settings", "FontName", "")[0], 'y') << "now there is room";
}

TEST_F(QtProfileTest, TwoRunningCopiesKeepEachOthersRecentFiles) {
  QtProfile profiles[] = {QtProfile(path), QtProfile(path)};
  RecentFiles lists[2];
  const auto with = [&](int copy, const std::function<void(RecentFiles&)>& act) {
    const UseService<Profile> use(profiles[copy]);
    act(lists[copy]);
  };
  for (const int copy : {0, 1}) with(copy, [](RecentFiles& list) { list.Load(); });
  // Of one length, and faster than a file's time goes on
  for (const char* name : {"/1", "/2", "/3", "/4", "/5", "/6", "/7"}) {
    with((name[1] - '0') % 2, [name](RecentFiles& list) { list.Add(name); });
  }
  with(0, [](RecentFiles& list) { list.Remove("/5"); });
  const std::vector<std::string> merged = {"/7", "/6", "/4", "/3", "/2"};
  EXPECT_EQ(lists[0].Paths(), merged);
  with(1, [](RecentFiles& list) { list.Load(); });
  EXPECT_EQ(lists[1].Paths(), merged);
  // A setting of one copy is not taken back by the other's next one.
  profiles[0].WriteString("Settings", "FontSize", "90");
  profiles[1].WriteString("Settings", "FontName", "Serif");
  EXPECT_EQ(QtProfile(path).GetInt("Settings", "FontSize", 0), 90);
}

}  // namespace

}  // namespace morvane
