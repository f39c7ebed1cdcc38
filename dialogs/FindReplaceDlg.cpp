#include "dialogs/FindReplaceDlg.h"

#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "platform/DataExchange.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/StartableState.h"

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
    : CDialog("Find / Replace"), model(model), onChanged(std::move(onChanged)) {
  AddInput();
  AddResult();
}

void FindReplaceDlg::AddInput() {
  Add(Kind::Group, IDC_INPUT, "Input");
  Add(Kind::Row, IDC_INPUT_ROW, "", IDC_INPUT);
  Add(Kind::Column, IDC_FIELDS, "", IDC_INPUT_ROW);
  Add(Kind::Edit, IDC_FIND_TEXT, "Find What:", IDC_FIELDS);
  Add(Kind::Edit, IDC_REPLACE_TEXT, "Replace With:", IDC_FIELDS);
  Add(Kind::Row, IDC_LOOK_IN, "Look In :", IDC_FIELDS);
  Add(Kind::CheckBox, IDC_STATES, "State", IDC_LOOK_IN);
  Add(Kind::CheckBox, IDC_MESSAGES, "Transition Event", IDC_LOOK_IN);
  Add(Kind::Column, IDC_BUTTONS, "", IDC_INPUT_ROW);
  Add(Kind::Button, IDC_FIND, "Find", IDC_BUTTONS).isDefault = true;
  Add(Kind::Button, IDC_REPLACE, "Replace", IDC_BUTTONS);
  Add(Kind::Button, IDCANCEL, "Close", IDC_BUTTONS);
}

void FindReplaceDlg::AddResult() {
  Add(Kind::Group, IDC_RESULT, "Result");
  Add(Kind::List, IDC_LIST, "", IDC_RESULT).columns = {{LoadText(IDS_FIND_OBJECT), kObjectWidth},
                                                       {LoadText(IDS_FIND_DETAIL), 0}};
  Add(Kind::Row, IDC_EDIT_ROW, "", IDC_RESULT);
  Add(Kind::Button, IDC_EDIT, "Edit", IDC_EDIT_ROW);
}

void FindReplaceDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_FIND_TEXT, findText);
  exchange.Text(IDC_REPLACE_TEXT, replaceText);
  exchange.Check(IDC_STATES, lookInStates);
  exchange.Check(IDC_MESSAGES, lookInMessages);
}

void FindReplaceDlg::OnInitDialog() { EnableButtons(); }

void FindReplaceDlg::OnClicked(int id) {
  switch (id) {
    case IDC_FIND: Find(); break;
    case IDC_REPLACE: Replace(); break;
    case IDC_EDIT: Edit(); break;
    case IDC_LIST: EnableButtons(); break;
    default: break;
  }
}

void FindReplaceDlg::EnableButtons() {
  const std::size_t selected = List().selectedRows.size();
  Enable(IDC_REPLACE, selected > 0);
  Enable(IDC_EDIT, selected == 1);
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
  UpdateData(true);
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
  UpdateData(true);
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
