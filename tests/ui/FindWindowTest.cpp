#include <QTreeWidget>

#include "dialogs/FindReplaceDlg.h"
#include "platform/qt/QtTextSearch.h"
#include "tests/support/ChartTest.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

namespace {

using Id = FindReplaceDlg;

/// What a user ticks and types, what the dialog says when all is replaced, and the texts then.
struct Search {
  std::vector<int> ticks;
  const char* find;
  const char* replace;
  std::string says;
  std::string texts = {};  ///< empty for those that there were
};

class FindWindow : public testing::Test {
 protected:
  /// Two names and two entries, of which one each is no UTF-8, a note, a class of the generators.
  static constexpr const char* kTexts = "Tür|öl Öl();\r\nö|T\xFCr|caf\xE9 x();|Straße|Context";

  FindWindow() { Load(); }
  void Load() {
    chart = LoadChart(ChartText(StateRecord(1, {10, 10, 20, 18}, "Tür", "öl Öl();\r\nö") +
                                StateRecord(2, {30, 10, 40, 18}, "T\xFCr", "caf\xE9 x();") +
                                NoteRecord(3, {50, 10, 60, 18}, Block("Straße"))));
    changes = 0;
  }

  std::string Texts() const {
    std::string all;
    for (const int id : {1, 2}) {
      auto* state = Find<GenericState>(*chart, id);
      all += state->GetName() + '|' + state->GetEntryExit().GetEntry() + '|';
    }
    return all + Find<Note>(*chart, 3)->GetText().GetText() + '|' +
           chart->GetProperties().JavaClassName;
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
  const std::string none = "Nothing found";
  const auto replaced = [](int count) { return "Occurrences replaced: " + std::to_string(count); };
  const Search searches[] = {
      {{}, "öl", "o", replaced(1), "Tür|o Öl();\r\nö|T\xFCr|caf\xE9 x();|Straße|Context"},
      {{}, "ÖL", "o", none},
      {{}, "Tür", "o", none},
      {{Id::kMatchCaseId},
       "ÖL",
       "o",
       replaced(2),
       "Tür|o o();\r\nö|T\xFCr|caf\xE9 x();|Straße|Context"},
      {{Id::kWholeWordsId},
       "ö",
       "o",
       replaced(1),
       "Tür|öl Öl();\r\no|T\xFCr|caf\xE9 x();|Straße|Context"},
      {{Id::kWholeWordsId}, "caf", "o", none},
      // Bytes of an older encoding stay that as long as they can.
      {{}, "é", "è", replaced(1), "Tür|öl Öl();\r\nö|T\xFCr|caf\xE8 x();|Straße|Context"},
      {{}, "é", "→", replaced(1), "Tür|öl Öl();\r\nö|T\xFCr|caf→ x();|Straße|Context"},
      {{Id::kWholeWordsId},
       "café",
       "Ã©",
       replaced(1),
       "Tür|öl Öl();\r\nö|T\xFCr|Ã© x();|Straße|Context"},
      {{Id::kNamesId},
       "ür",
       "ó",
       replaced(2),
       "Tó|öl Öl();\r\nö|T\xF3|caf\xE9 x();|Straße|Context"},
      {{Id::kNamesId, Id::kExpressionId, Id::kStatesId},
       ".+",
       "",
       replaced(2),
       "State|öl Öl();\r\nö|State|caf\xE9 x();|Straße|Context"},
      {{Id::kNotesId},
       "ß",
       "ss",
       replaced(1),
       "Tür|öl Öl();\r\nö|T\xFCr|caf\xE9 x();|Strasse|Context"},
      {{Id::kPropertiesId, Id::kWholeWordsId},
       "Context",
       "Öl",
       replaced(4),
       "Tür|öl Öl();\r\nö|T\xFCr|caf\xE9 x();|Straße|Öl"},
      {{Id::kExpressionId},
       R"((\w+)( x)?\(\))",
       R"(\1(\0\\)\9)",
       replaced(2),
       "Tür|öl Öl(Öl()\\);\r\nö|T\xFCr|caf\xE9(caf\xE9 x()\\);|Straße|Context"},
      {{Id::kExpressionId},
       "^",
       "> ",
       replaced(3),
       "Tür|> öl Öl();\r\n> ö|T\xFCr|> caf\xE9 x();|Straße|Context"},
      {{Id::kExpressionId},
       "ö(l",
       "o",
       "This is no regular expression. At character 4: missing closing parenthesis"},
      {{}, "ö(l", "o", none},
  };
  for (const auto& [ticks, find, replace, says, texts] : searches) {
    Load();
    Run([&](FindReplaceDlg& dialog, QtDialogWindow& window) {
      for (const int id : ticks) OpenDialog::Click(window, id);
      OpenDialog::TypeInto(window, Id::kFindTextId, QString::fromUtf8(find));
      OpenDialog::TypeInto(window, Id::kReplaceTextId, QString::fromUtf8(replace));
      OpenDialog::Click(window, Id::kReplaceAllId);
      EXPECT_EQ(dialog.Control(Id::kStatusId).text, says) << find;
    });
    EXPECT_EQ(Texts(), texts.empty() ? kTexts : texts) << find;
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
