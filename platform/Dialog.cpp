#include "platform/Dialog.h"

#include <algorithm>

#include "platform/FieldExchange.h"
#include "platform/ModalLoop.h"

namespace morvane {

namespace {

constexpr int kButtonRow = -1;

class NoDialogHost : public DialogHost {
 public:
  void Run(Dialog& dialog) override { dialog.Click(IDCANCEL); }
};

}  // namespace

DialogHost& DialogHost::Default() {
  static NoDialogHost service;
  return service;
}

bool Dialog::DoModal() {
  const ModalLoop loop;
  open = true;
  accepted = false;
  ShowFields();
  OnFilled();
  Run();
  open = false;
  return accepted;
}

void Dialog::Run() { Service<DialogHost>::Get().Run(*this); }

DialogControl& Dialog::Control(int id) {
  return *std::ranges::find(controls, id, &DialogControl::id);
}

const DialogControl& Dialog::Control(int id) const {
  return *std::ranges::find(controls, id, &DialogControl::id);
}

void Dialog::Click(int id) {
  if (!open) return;
  switch (id) {
    case IDOK:
      if (OnOk()) EndDialog(true);
      break;
    case IDCANCEL: EndDialog(false); break;
    default: OnClicked(id);
  }
  Refresh();
}

DialogControl& Dialog::Add(DialogControl::Kind kind, int id, std::string label, int parent) {
  DialogControl& control = controls.emplace_back();
  control.kind = kind;
  control.id = id;
  control.label = std::move(label);
  control.parent = parent;
  return control;
}

void Dialog::AddButtons(const std::string& ok, const std::string& cancel) {
  Add(DialogControl::Kind::Row, kButtonRow, "");
  Add(DialogControl::Kind::Button, IDOK, ok, kButtonRow).isDefault = true;
  Add(DialogControl::Kind::Button, IDCANCEL, cancel, kButtonRow);
}

bool Dialog::OnOk() {
  TakeFields();
  return true;
}

void Dialog::ShowFields() {
  FieldExchange exchange(*this, FieldExchange::Way::ToControls);
  ExchangeFields(exchange);
}

void Dialog::TakeFields() {
  FieldExchange exchange(*this, FieldExchange::Way::ToFields);
  ExchangeFields(exchange);
}

void Dialog::FocusOn(int id) {
  if (window != nullptr) window->FocusOn(id);
}

void Dialog::KeepOff(const RECT& screen) {
  if (window != nullptr) window->KeepOff(screen);
}

void Dialog::EndDialog(bool ok) {
  accepted = ok;
  open = false;
  if (window != nullptr) window->End();
}

void Dialog::Refresh() {
  if (open && window != nullptr) window->Refresh();
}

}  // namespace morvane
