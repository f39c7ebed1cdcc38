#include "dialogs/FindReplaceDlg.h"

#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "platform/FieldExchange.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

constexpr int kObjectWidth = 125;
constexpr std::size_t kDetailColumn = 1;

std::string NameOf(const State* end) {
  return end != nullptr ? end->GetName() : LoadText(IDS_UNDEFINED);
}

std::string RouteOf(const Transition* transition) {
  const State* source = transition != nullptr ? transition->GetSource() : nullptr;
  const State* target = transition != nullptr ? transition->GetTarget() : nullptr;
  return NameOf(source) + " -> " + NameOf(target);
}

}  // namespace

FindReplaceDlg::FindReplaceDlg(ModelMgr& model, std::function<void()> onChanged)
    : Dialog("Find / Replace"), model(model), onChanged(std::move(onChanged)) {
  AddInput();
  AddResult();
}

void FindReplaceDlg::AddInput() {
  Add(Kind::Group, kInputId, "Input");
  Add(Kind::Row, kInputRowId, "", kInputId);
  Add(Kind::Column, kFieldsId, "", kInputRowId);
  Add(Kind::Edit, kFindTextId, "Find What:", kFieldsId);
  Add(Kind::Edit, kReplaceTextId, "Replace With:", kFieldsId);
  Add(Kind::Row, kLookInId, "Look In :", kFieldsId);
  Add(Kind::CheckBox, kStatesId, "State", kLookInId);
  Add(Kind::CheckBox, kMessagesId, "Transition Event", kLookInId);
  Add(Kind::Column, kButtonsId, "", kInputRowId);
  Add(Kind::Button, kFindId, "Find", kButtonsId).isDefault = true;
  Add(Kind::Button, kReplaceId, "Replace", kButtonsId);
  Add(Kind::Button, IDCANCEL, "Close", kButtonsId);
}

void FindReplaceDlg::AddResult() {
  Add(Kind::Group, kResultId, "Result");
  Add(Kind::List, kListId, "", kResultId).columns = {{LoadText(IDS_FIND_OBJECT), kObjectWidth},
                                                     {LoadText(IDS_FIND_DETAIL), 0}};
  Add(Kind::Row, kEditRowId, "", kResultId);
  Add(Kind::Button, kEditId, "Edit", kEditRowId);
}

void FindReplaceDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kFindTextId, findText);
  exchange.Text(kReplaceTextId, replaceText);
  exchange.Check(kStatesId, lookInStates);
  exchange.Check(kMessagesId, lookInMessages);
}

void FindReplaceDlg::OnFilled() { EnableButtons(); }

void FindReplaceDlg::OnClicked(int id) {
  switch (id) {
    case kFindId: Find(); break;
    case kReplaceId: Replace(); break;
    case kEditId: Edit(); break;
    case kListId: EnableButtons(); break;
    default: break;
  }
}

void FindReplaceDlg::EnableButtons() {
  const std::size_t selected = List().selectedRows.size();
  Enable(kReplaceId, selected > 0);
  Enable(kEditId, selected == 1);
}

bool FindReplaceDlg::HasFindText() const {
  if (!findText.empty()) return true;
  ShowMessage(LoadText(IDS_FIND_EMPTY), MB_ICONHAND);
  return false;
}

/// The buttons stay as they are until the next click in the list.
void FindReplaceDlg::Find() {
  List().rows.clear();
  List().selectedRows.clear();
  found.clear();
  TakeFields();
  if (!HasFindText()) return;
  for (Shape* object : model.Objects()) ListIfFound(object);
}

void FindReplaceDlg::ListIfFound(Shape* object) {
  auto* state = lookInStates != 0 ? dynamic_cast<GenericState*>(object) : nullptr;
  if (state != nullptr && state->GetEntryExit().Contains(findText)) {
    AddRow(LoadText(IDS_FIND_STATE), state->GetName(), *state, state->GetEntryExit());
    return;
  }
  auto* mesg = lookInMessages != 0 ? dynamic_cast<Mesg*>(object) : nullptr;
  if (mesg != nullptr && mesg->GetText().Contains(findText)) {
    AddRow(LoadText(IDS_FIND_MESSAGE), RouteOf(mesg->GetTransition()), *mesg, mesg->GetText());
  }
}

void FindReplaceDlg::AddRow(std::string kind, std::string detail, Shape& object,
                            TextHandler& text) {
  List().rows.push_back({std::move(kind), std::move(detail)});
  found.push_back({&object, &text});
}

void FindReplaceDlg::Replace() {
  TakeFields();
  if (!HasFindText()) return;
  bool changed = false;
  for (const int row : List().selectedRows) {
    const Found& place = found.at(static_cast<std::size_t>(row));
    if (!place.text->ReplaceAll(findText, replaceText)) continue;
    place.object->OnTextsChanged();
    changed = true;
  }
  if (!changed) return;
  Find();
  TellChanged();
}

void FindReplaceDlg::TellChanged() const {
  if (onChanged) onChanged();
}

void FindReplaceDlg::Edit() {
  const std::vector<int>& selected = List().selectedRows;
  if (selected.size() != 1) return;
  const auto row = static_cast<std::size_t>(selected.front());
  const std::string detail = List().rows.at(row).at(kDetailColumn);
  if (!found.at(row).text->EditText(detail)) return;
  found.at(row).object->OnTextsChanged();
  TellChanged();
}

}  // namespace morvane
