#include "drawing/qt/QtText.h"
#include "shell/AllCommands.h"
#include "shell/MenuTable.h"
#include "shell/qt/CommandIcons.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

TEST(MenuTableTest, EachCommandStandsOnceInATableAndItsKeysAreItsOwn) {
  std::set<unsigned> ids;
  std::set<QKeySequence> seen;
  for (const Command* command : AllCommands()) {
    for (unsigned id = command->id; command->Has(id); ++id) {
      EXPECT_TRUE(ids.insert(id).second) << id;
      EXPECT_EQ(&FindCommand(id), command) << id;
    }
    for (const QString& key : FromUtf8(command->keys).split(' ', Qt::SkipEmptyParts)) {
      const QKeySequence keys(key);
      ASSERT_EQ(keys.count(), 1) << command->keys;
      EXPECT_NE(keys[0].key(), Qt::Key_unknown) << command->keys;
      EXPECT_TRUE(seen.insert(keys).second) << command->keys;
    }
  }
}

TEST(MenuTableTest, EachEntryStandsOnceInAMenuAndHasATextAndAPrompt) {
  for (const auto menu : {StartMenu(), ChartMenu()}) {
    std::set<unsigned> seen;
    for (const MenuPopup& popup : menu) {
      EXPECT_NE(popup.entries.front().id, 0U) << popup.title;
      EXPECT_NE(popup.entries.back().id, 0U) << popup.title;
      std::vector<MenuEntry> entries(popup.entries.begin(), popup.entries.end());
      for (const MenuEntry& entry : popup.entries) {
        if (entry.popup != nullptr)
          entries.insert(entries.end(), entry.popup->entries.begin(), entry.popup->entries.end());
      }
      for (const MenuEntry& entry : entries) {
        if (entry.id == 0) continue;
        EXPECT_TRUE(seen.insert(entry.id).second) << entry.id;
        EXPECT_NE(MenuText(entry), "") << entry.id;
        EXPECT_FALSE(FindCommand(entry.id).prompt.empty()) << entry.id;
      }
    }
  }
}

TEST(MenuTableTest, EveryButtonHasATipAndAnIcon) {
  for (const auto bar : {ToolBarButtons(), DrawingBarButtons()}) {
    for (const unsigned id : bar) {
      if (id == 0) continue;
      EXPECT_FALSE(FindCommand(id).toolTip.empty()) << id;
      EXPECT_FALSE(MakeCommandIcon(id, QPalette()).isNull()) << id;
    }
  }
}

}  // namespace morvane
