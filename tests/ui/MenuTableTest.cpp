#include <map>

#include "drawing/qt/QtText.h"
#include "shell/MenuTable.h"
#include "shell/qt/CommandIcons.h"
#include "tests/ui/WindowTest.h"

TEST(MenuTableTest, EachCommandStandsOnceInAMenuAndHasAPrompt) {
  for (const auto menu : {StartMenu(), ChartMenu()}) {
    std::set<unsigned> seen;
    for (const MenuPopup& popup : menu) {
      EXPECT_NE(popup.entries.front().id, 0U) << popup.title;
      EXPECT_NE(popup.entries.back().id, 0U) << popup.title;
      for (const MenuEntry& entry : popup.entries) {
        if (entry.id == 0) continue;
        EXPECT_TRUE(seen.insert(entry.id).second) << entry.text;
        EXPECT_FALSE(CommandPrompt(entry.id).empty()) << entry.text;
      }
    }
  }
}

TEST(MenuTableTest, EveryButtonHasATipAndAnIcon) {
  for (const auto bar : {ToolBarButtons(), DrawingBarButtons()}) {
    for (const unsigned id : bar) {
      if (id == 0) continue;
      EXPECT_FALSE(CommandToolTip(id).empty()) << id;
      EXPECT_FALSE(MakeCommandIcon(id, QPalette()).isNull()) << id;
    }
  }
  EXPECT_EQ(CommandPrompt(ID_FILE_RECENT + 5), CommandPrompt(ID_FILE_RECENT));
}

TEST(MenuTableTest, KeysAreKnownUniqueAndThoseOfTheMenus) {
  std::set<QKeySequence> seen;
  std::map<std::string_view, unsigned> byKey;
  for (const Accelerator& accelerator : Accelerators()) {
    const QKeySequence keys(FromUtf8(accelerator.key));
    ASSERT_EQ(keys.count(), 1) << accelerator.key;
    EXPECT_NE(keys[0].key(), Qt::Key_unknown) << accelerator.key;
    EXPECT_TRUE(seen.insert(keys).second) << accelerator.key;
    byKey[accelerator.key] = accelerator.id;
  }
  for (const MenuPopup& popup : ChartMenu()) {
    for (const MenuEntry& entry : popup.entries) {
      const std::size_t tab = entry.text.find('\t');
      if (tab == std::string_view::npos) continue;
      EXPECT_EQ(byKey[entry.text.substr(tab + 1)], entry.id) << entry.text;
    }
  }
}
