#include "dialogs/FindReplaceDlg.h"

#include <utility>

#include "dialogs/ChartSearch.h"
#include "drawing/TextCodec.h"
#include "model/Shape.h"
#include "platform/FieldExchange.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

constexpr int kObjectWidth = 125;

}  // namespace

FindReplaceDlg::FindReplaceDlg(SearchedChart searched)
    : Dialog("Find / Replace"), chart(std::move(searched)) {
  AddInput();
  AddResult();
}

FindReplaceDlg::~FindReplaceDlg() = default;

void FindReplaceDlg::AddInput() {
  Add(Kind::Group, kInputId, "Input");
  Add(Kind::Row, kInputRowId, "", kInputId);
  Add(Kind::Column, kFieldsId, "", kInputRowId);
  Add(Kind::Edit, kFindTextId, "Find W&hat:", kFieldsId);
  Add(Kind::Edit, kReplaceTextId, "Replace &With:", kFieldsId);
  AddTicks();
  Add(Kind::Column, kButtonsId, "", kInputRowId);
  Add(Kind::Button, kFindId, "&Find", kButtonsId).isDefault = true;
  Add(Kind::Button, kReplaceId, "&Replace", kButtonsId);
  Add(Kind::Button, kReplaceAllId, "Replace &All", kButtonsId);
  Add(Kind::Button, IDCANCEL, "Close", kButtonsId);
}

void FindReplaceDlg::AddTicks() {
  Add(Kind::Row, kLookInId, "Look In :", kFieldsId);
  Add(Kind::CheckBox, kStatesId, "&State", kLookInId);
  Add(Kind::CheckBox, kMessagesId, "&Transition Event", kLookInId);
  Add(Kind::CheckBox, kNamesId, "&Names", kLookInId);
  Add(Kind::CheckBox, kNotesId, "N&otes", kLookInId);
  Add(Kind::CheckBox, kPropertiesId, "&Properties", kLookInId);
  Add(Kind::Row, kOptionsId, "Options :", kFieldsId);
  Add(Kind::CheckBox, kMatchCaseId, "Match &Case", kOptionsId);
  Add(Kind::CheckBox, kWholeWordsId, "Whole Wor&ds", kOptionsId);
  Add(Kind::CheckBox, kExpressionId, "Regular E&xpression", kOptionsId);
}

void FindReplaceDlg::AddResult() {
  Add(Kind::Group, kResultId, "Res&ult");
  Add(Kind::List, kListId, "", kResultId).columns = {{LoadText(IDS_FIND_OBJECT), kObjectWidth},
                                                     {LoadText(IDS_FIND_DETAIL), 0}};
  Add(Kind::Row, kEditRowId, "", kResultId);
  Add(Kind::Text, kStatusId, "", kEditRowId);
  Add(Kind::Button, kEditId, "Ed&it", kEditRowId);
}

void FindReplaceDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kFindTextId, findText);
  exchange.Text(kReplaceTextId, replaceText);
  exchange.Check(kStatesId, lookIn.states);
  exchange.Check(kMessagesId, lookIn.messages);
  exchange.Check(kNamesId, lookIn.names);
  exchange.Check(kNotesId, lookIn.notes);
  exchange.Check(kPropertiesId, lookIn.properties);
  exchange.Check(kMatchCaseId, matchCase);
  exchange.Check(kWholeWordsId, wholeWords);
  exchange.Check(kExpressionId, isExpression);
}

void FindReplaceDlg::OnFilled() { EnableButtons(); }

void FindReplaceDlg::OnClicked(int id) {
  switch (id) {
    case kFindId: Find(); break;
    case kReplaceId: Replace(); break;
    case kReplaceAllId: ReplaceAll(); break;
    case kEditId: Edit(); break;
    case kListId: OnRowsChosen(); break;
    default: break;
  }
}

void FindReplaceDlg::OnRowsChosen() {
  EnableButtons();
  std::vector<Shape*> objects;
  for (const SearchPlace* place : ChosenPlaces()) {
    if (Shape* object = place->Object()) objects.push_back(object);
  }
  if (!objects.empty() && chart.reveal) KeepOff(chart.reveal(objects));
}

void FindReplaceDlg::EnableButtons() {
  const std::size_t selected = List().selectedRows.size();
  Enable(kReplaceId, selected > 0);
  Enable(kEditId, selected == 1);
}

bool FindReplaceDlg::StartSearch(ChartSearch& search) {
  TakeFields();
  Say("");
  if (findText.empty()) {
    ShowMessage(LoadText(IDS_FIND_EMPTY), MB_ICONHAND);
    return false;
  }
  std::string message;
  if (search.Start({ToUtf8(findText), matchCase != 0, wholeWords != 0, isExpression != 0},
                   message)) {
    return true;
  }
  Say(std::move(message));
  FocusOn(kFindTextId);
  return false;
}

/// The buttons stay as they are until the next click in the list.
void FindReplaceDlg::Find() {
  ClearRows();
  ChartSearch search;
  if (!StartSearch(search)) return;
  std::size_t count = 0;
  for (auto& place : SearchPlace::Of(chart, lookIn)) {
    const std::size_t hits = search.CountIn(*place);
    if (search.GaveUp()) break;
    count += hits;
    if (hits > 0) AddRow(std::move(place));
  }
  if (search.GaveUp()) {
    Say(LoadText(IDS_SEARCH_TOO_LONG));
  } else if (count == 0) {
    Say(LoadText(IDS_NOTHING_FOUND));
  } else {
    Say(WithName(LoadText(IDS_FOUND_COUNT), std::to_string(count)));
  }
}

void FindReplaceDlg::ClearRows() {
  List().rows.clear();
  List().selectedRows.clear();
  found.clear();
}

void FindReplaceDlg::AddRow(std::unique_ptr<SearchPlace> place) {
  List().rows.push_back({place->Kind(), place->Detail()});
  found.push_back(std::move(place));
}

std::vector<SearchPlace*> FindReplaceDlg::ChosenPlaces() const {
  std::vector<SearchPlace*> places;
  for (const int row : List().selectedRows) {
    places.push_back(found.at(static_cast<std::size_t>(row)).get());
  }
  return places;
}

void FindReplaceDlg::Replace() {
  ChartSearch search;
  if (StartSearch(search)) ReplaceIn(search, ChosenPlaces());
}

void FindReplaceDlg::ReplaceAll() {
  ChartSearch search;
  if (!StartSearch(search)) return;
  const auto all = SearchPlace::Of(chart, lookIn);
  std::vector<SearchPlace*> places;
  places.reserve(all.size());
  for (const auto& place : all) places.push_back(place.get());
  ReplaceIn(search, places);
}

void FindReplaceDlg::ReplaceIn(ChartSearch& search, const std::vector<SearchPlace*>& places) {
  if (places.empty()) return;
  const std::size_t count = search.Replace(places, ToUtf8(replaceText));
  if (count > 0) {
    Find();
    TellChanged();
  }
  Say(search.GaveUp() ? LoadText(IDS_SEARCH_TOO_LONG)
      : count == 0    ? LoadText(IDS_NOTHING_FOUND)
                      : WithName(LoadText(IDS_REPLACED_COUNT), std::to_string(count)));
}

void FindReplaceDlg::TellChanged() const {
  if (chart.onChanged) chart.onChanged();
}

void FindReplaceDlg::Edit() {
  const std::vector<SearchPlace*> chosen = ChosenPlaces();
  if (chosen.size() != 1) return;
  SearchPlace& place = *chosen.front();
  if (!place.Edit()) return;
  List().rows.at(static_cast<std::size_t>(List().selectedRows.front())) = {place.Kind(),
                                                                           place.Detail()};
  TellChanged();
}

}  // namespace morvane
