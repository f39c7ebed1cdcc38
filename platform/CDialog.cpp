#include "platform/CDialog.h"

#include <algorithm>

#include "platform/DataExchange.h"
#include "platform/ModalLoop.h"

namespace {

constexpr int kButtonRow = -1;

class NoDialogHost : public DialogHost {
 public:
  void Run(CDialog& dialog) override { dialog.Click(IDCANCEL); }
};

}  // namespace

DialogHost& DialogHost::Default() {
  static NoDialogHost service;
  return service;
}

bool CDialog::DoModal() {
  const ModalLoop loop;
  open = true;
  accepted = false;
  UpdateData(false);
  OnInitDialog();
  Run();
  open = false;
  return accepted;
}

void CDialog::Run() { Service<DialogHost>::Get().Run(*this); }

DialogControl& CDialog::Control(int id) {
  return *std::ranges::find(controls, id, &DialogControl::id);
}

const DialogControl& CDialog::Control(int id) const {
  return *std::ranges::find(controls, id, &DialogControl::id);
}

void CDialog::Click(int id) {
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

DialogControl& CDialog::Add(DialogControl::Kind kind, int id, std::string label, int parent) {
  DialogControl& control = controls.emplace_back();
  control.kind = kind;
  control.id = id;
  control.label = std::move(label);
  control.parent = parent;
  return control;
}

void CDialog::AddButtons(const std::string& ok, const std::string& cancel) {
  Add(DialogControl::Kind::Row, kButtonRow, "");
  Add(DialogControl::Kind::Button, IDOK, ok, kButtonRow).isDefault = true;
  Add(DialogControl::Kind::Button, IDCANCEL, cancel, kButtonRow);
}

bool CDialog::OnOk() {
  UpdateData(true);
  return true;
}

void CDialog::UpdateData(bool save) {
  DataExchange exchange(*this, save);
  DoDataExchange(exchange);
}

void CDialog::FocusOn(int id) {
  if (window != nullptr) window->FocusOn(id);
}

void CDialog::EndDialog(bool ok) {
  accepted = ok;
  open = false;
  if (window != nullptr) window->End();
}

void CDialog::Refresh() {
  if (open && window != nullptr) window->Refresh();
}
