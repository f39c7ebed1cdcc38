#include "dialogs/CEventEditor.h"

#include "platform/DataExchange.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

CEventEditor::CEventEditor() : CDialog("Edit Event") {
  using Kind = DialogControl::Kind;
  constexpr int codeWidth = 56;
  Add(Kind::Group, IDC_EVENT_GROUP, "Event");
  Add(Kind::Edit, IDC_EVENT, "", IDC_EVENT_GROUP).code = true;
  Add(Kind::Group, IDC_GUARD_GROUP, "Guard");
  DialogControl& guardBox = Add(Kind::Edit, IDC_GUARD, "", IDC_GUARD_GROUP);
  guardBox.prefix = "[";
  guardBox.suffix = "]";
  guardBox.code = true;
  Add(Kind::Group, IDC_EFFECT_GROUP, "Effect");
  DialogControl& effectBox = Add(Kind::MultiEdit, IDC_EFFECT, "", IDC_EFFECT_GROUP);
  effectBox.prefix = "/";
  effectBox.code = true;
  effectBox.width = codeWidth;
  effectBox.lines = 10;
  AddButtons("Update", "Cancel");
}

void CEventEditor::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_EVENT, event);
  exchange.Text(IDC_GUARD, guard);
  exchange.Text(IDC_EFFECT, effect);
}

bool CEventEditor::OnOk() {
  UpdateData(true);
  if (!event.empty()) return true;
  ShowMessage(LoadText(IDS_EVENT_EMPTY), MB_ICONHAND);
  FocusOn(IDC_EVENT);
  return false;
}
