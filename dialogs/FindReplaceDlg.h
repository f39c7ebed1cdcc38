#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/SearchPlace.h"
#include "model/SearchedChart.h"
#include "platform/Dialog.h"

namespace morvane {

class ChartSearch;

/// Finds and replaces text in one chart: at first in the entry and exit texts of the states and the
/// three texts of the messages, as it is typed. It changes the objects at once, which show it, and
/// says so.
class FindReplaceDlg : public Dialog {
 public:
  enum ControlId : int {
    kInputId = 100,
    kInputRowId,
    kFieldsId,
    kFindTextId,
    kReplaceTextId,
    kLookInId,
    kStatesId,
    kMessagesId,
    kButtonsId,
    kFindId,
    kReplaceId,
    kResultId,
    kListId,
    kEditRowId,
    kEditId,
    kNamesId,
    kNotesId,
    kPropertiesId,
    kOptionsId,
    kMatchCaseId,
    kWholeWordsId,
    kExpressionId,
    kReplaceAllId,
    kStatusId
  };

  /// The chart must not change otherwise while the dialog is open.
  explicit FindReplaceDlg(SearchedChart chart);
  ~FindReplaceDlg() override;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;

 private:
  void AddInput();
  void AddTicks();
  void AddResult();
  void Find();
  void Replace();
  void ReplaceAll();
  void Edit();
  void OnRowsChosen();
  void EnableButtons();
  void TellChanged() const;
  /// Takes the boxes and makes the search of them; false, and the user was told, if they hold none.
  bool StartSearch(ChartSearch& search);
  /// Replaces in places, and searches again if that changed anything.
  void ReplaceIn(ChartSearch& search, const std::vector<SearchPlace*>& places);
  void ClearRows();
  void AddRow(std::unique_ptr<SearchPlace> place);
  void Say(std::string text) { Control(kStatusId).text = std::move(text); }
  std::vector<SearchPlace*> ChosenPlaces() const;
  DialogControl& List() { return Control(kListId); }
  const DialogControl& List() const { return Control(kListId); }

  SearchedChart chart;
  LookIn lookIn;
  std::int32_t matchCase = 1;
  std::int32_t wholeWords = 0;
  std::int32_t isExpression = 0;
  std::string findText;
  std::string replaceText;
  std::vector<std::unique_ptr<SearchPlace>> found;  ///< of each row
};

}  // namespace morvane
