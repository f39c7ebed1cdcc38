#include <QTreeWidget>

#include "dialogs/FindReplaceDlg.h"
#include "platform/qt/QtTextSearch.h"
#include "tests/support/ChartTest.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

namespace {

using Id = FindReplaceDlg;

/// What a user ticks and types, how often it is replaced, and the texts that are others then.
struct Search {
  std::vector<int> ticks;
  const char* find;
  const char* replace;
  int count = 0;
  std::vector<std::string> texts = {};
};

class FindWindow : public testing::Test {
 protected:
  FindWindow() { Load(); }
  /// Two names and two entries, of which one each is no UTF-8, a note, a class of the generators.
  void Load() {
    chart = LoadChart(ChartText(StateRecord(1, {10, 10, 20, 18}, "Tür", "öl Öl();\r\nö") +
                                StateRecord(2, {30, 10, 40, 18}, "T\xFCr", "caf\xE9 x();") +
                                NoteRecord(3, {50, 10, 60, 18}, Block("Straße"))));
    changes = 0;
  }

  std::vector<std::string> Texts() const {
    std::vector<std::string> all;
    for (const int id : {1, 2}) {
      auto* state = Find<GenericState>(*chart, id);
      all.push_back(state->GetName());
      all.push_back(state->GetEntryExit().GetEntry());
    }
    all.push_back(Find<Note>(*chart, 3)->GetText().GetText());
    all.push_back(chart->GetProperties().JavaClassName);
    return all;
  }
  /// Opens the dialog over the chart, and does `act` in it.
  void Run(const std::function<void(FindReplaceDlg&, QtDialogWindow&)>& act) {
    FindReplaceDlg dialog({chart->GetModel(), chart->GetProperties(), [this] { ++changes; },
                           [this](const auto& objects) {
                             chart->Reveal(objects);
                             return place;
                           }});
    open.Run(dialog, [&](QtDialogWindow& window) { act(dialog, window); });
  }

  QtTextSearch search;
  const UseService<TextSearch> use{search};
  OpenDialog open;
  std::unique_ptr<LayoutMgr> chart;
  int changes = 0;
  RECT place{};  ///< of an object on the screen
};

TEST_F(FindWindow, CountsCharactersAndSaysWhatCameOfIt) {
  const Search searches[] = {
      {{}, "öl", "o", 1, {"o Öl();\r\nö"}},
      {{}, "ÖL", "o"},
      {{}, "Tür", "o"},
      {{Id::kMatchCaseId}, "ÖL", "o", 2, {"o o();\r\nö"}},
      {{Id::kWholeWordsId}, "ö", "o", 1, {"öl Öl();\r\no"}},
      {{Id::kWholeWordsId}, "caf", "o"},
      // Bytes of an older encoding stay that as long as they can.
      {{}, "é", "è", 1, {"caf\xE8 x();"}},
      {{}, "é", "→", 1, {"caf→ x();"}},
      {{Id::kWholeWordsId}, "café", "Ã©", 1, {"Ã© x();"}},
      {{Id::kNamesId}, "ür", "ó", 2, {"Tó", "T\xF3"}},
      {{Id::kNamesId, Id::kExpressionId, Id::kStatesId}, ".+", "", 2, {"State", "State"}},
      {{Id::kNotesId}, "ß", "ss", 1, {"Strasse"}},
      {{Id::kPropertiesId, Id::kWholeWordsId}, "Context", "Öl", 4, {"Öl"}},
      {{Id::kExpressionId},
       R"((\w+)( x)?\(\))",
       R"(\1(\0\\)\9)",
       2,
       {"öl Öl(Öl()\\);\r\nö", "caf\xE9(caf\xE9 x()\\);"}},
      {{Id::kExpressionId}, "^", "> ", 3, {"> öl Öl();\r\n> ö", "> caf\xE9 x();"}},
      {{Id::kExpressionId}, "ö(l", "o", -1},
      {{}, "ö(l", "o"},
  };
  for (const auto& [ticks, find, replace, count, texts] : searches) {
    Load();
    const std::vector<std::string> before = Texts();
    const std::string says =
        count > 0    ? "Occurrences replaced: " + std::to_string(count)
        : count == 0 ? "Nothing found"
                     : "This is no regular expression. At character 4: missing closing parenthesis";
    Run([&](FindReplaceDlg& dialog, QtDialogWindow& window) {
      for (const int id : ticks) OpenDialog::Click(window, id);
      OpenDialog::TypeInto(window, Id::kFindTextId, QString::fromUtf8(find));
      OpenDialog::TypeInto(window, Id::kReplaceTextId, QString::fromUtf8(replace));
      OpenDialog::Click(window, Id::kReplaceAllId);
      EXPECT_EQ(dialog.Control(Id::kStatusId).text, says) << find;
    });
    std::vector<std::string> changed = Texts();
    for (std::size_t i = before.size(); i-- > 0;) {
      if (changed[i] == before[i]) changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(i));
    }
    EXPECT_EQ(changed, texts) << find;
    EXPECT_EQ(changes, texts.empty() ? 0 : 1) << find;
  }
}

TEST_F(FindWindow, ARowShowsItsObjectAndARunawayPatternIsGivenUp) {
  Run([&](FindReplaceDlg& dialog, QtDialogWindow& window) {
    OpenDialog::Click(window, Id::kNotesId);
    OpenDialog::Click(window, Id::kExpressionId);
    OpenDialog::TypeInto(window, Id::kFindTextId, "[a-z]+");
    OpenDialog::Click(window, Id::kFindId);
    EXPECT_EQ(dialog.Control(Id::kStatusId).text, "Occurrences found: 6");
    auto* list = OpenDialog::Find<QTreeWidget>(window, Id::kListId);
    for (const auto& [row, id] : {std::pair(2, 3), std::pair(0, 1)}) {
      const QPoint low = window.frameGeometry().bottomLeft() + QPoint(100, -30);
      place = {low.x(), low.y(), low.x() + 20, low.y() + 10};
      list->setCurrentItem(list->topLevelItem(row));
      EXPECT_EQ(chart->GetSelection().Members(), std::vector<Collectable*>{FindShape(*chart, id)});
      EXPECT_FALSE(window.frameGeometry().contains(place.left, place.top));
    }
  });
  const std::string entry = std::string(5000, 'a');
  Find<GenericState>(*chart, 2)->GetEntryExit().SetTexts(entry, entry);
  for (const char* pattern :
       {"(a+)+[bc]", "(a|aa)+[bc]", "(?:a?){30}a{30}[bc]", ".{0,600}.{0,600}[!?]"}) {
    Run([&](FindReplaceDlg& dialog, QtDialogWindow& window) {
      OpenDialog::Click(window, Id::kExpressionId);
      OpenDialog::TypeInto(window, Id::kFindTextId, pattern);
      for (const int id : {Id::kFindId, Id::kReplaceAllId}) {
        OpenDialog::Click(window, id);
        EXPECT_EQ(dialog.Control(Id::kStatusId).text, LoadText(IDS_SEARCH_TOO_LONG)) << pattern;
      }
    });
  }
  // One that takes its time from a few places alone finds what there is.
  Run([&](FindReplaceDlg& dialog, QtDialogWindow& window) {
    OpenDialog::Click(window, Id::kExpressionId);
    OpenDialog::TypeInto(window, Id::kFindTextId, "^.{0,50}.{0,50}.{5000}$|ö");
    OpenDialog::Click(window, Id::kFindId);
    EXPECT_EQ(dialog.Control(Id::kStatusId).text, "Occurrences found: 4");
  });
  EXPECT_EQ(Find<GenericState>(*chart, 2)->GetEntryExit().GetEntry(), entry);
  EXPECT_EQ(changes, 0);
}

}  // namespace

}  // namespace morvane
