#include "dialogs/CEventEditor.h"

#include "platform/FieldExchange.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

CEventEditor::CEventEditor(Syntax syntax) : Dialog("Edit Event") {
  using Kind = DialogControl::Kind;
  constexpr int codeWidth = 56;
  Add(Kind::Group, kEventGroupId, "&Event");
  Add(Kind::Edit, kEventId, "", kEventGroupId).code = true;
  Add(Kind::Group, kGuardGroupId, "&Guard");
  DialogControl& guardBox = Add(Kind::Edit, kGuardId, "", kGuardGroupId);
  guardBox.prefix = "[";
  guardBox.suffix = "]";
  guardBox.code = true;
  Add(Kind::Group, kEffectGroupId, "E&ffect");
  DialogControl& effectBox = Add(Kind::MultiEdit, kEffectId, "", kEffectGroupId);
  effectBox.prefix = "/";
  effectBox.code = true;
  effectBox.syntax = syntax;
  effectBox.width = codeWidth;
  effectBox.lines = 10;
  AddButtons("Update", "Cancel");
}

void CEventEditor::ExchangeFields(FieldExchange& exchange) {
  ExchangeEvent(exchange);
  exchange.Text(kGuardId, guard);
  exchange.Text(kEffectId, effect);
}

/// The user sees an event that nobody has named yet in the own language; charts and generators know
/// it by one word.
void CEventEditor::ExchangeEvent(FieldExchange& exchange) {
  const std::string shown = Translate(kNoName);
  if (event == kNoName) event = shown;
  exchange.Text(kEventId, event);
  if (event == shown) event = kNoName;
}

bool CEventEditor::OnOk() {
  TakeFields();
  if (!event.empty()) return true;
  ShowMessage(LoadText(IDS_EVENT_EMPTY), MB_ICONHAND);
  FocusOn(kEventId);
  return false;
}

}  // namespace morvane
