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
