#include "dialogs/LayoutMgrPropDlg.h"

#include "platform/FieldExchange.h"

namespace morvane {

LayoutMgrPropDlg::LayoutMgrPropDlg() : Dialog("Model Properties") {
  using Kind = DialogControl::Kind;
  Add(Kind::Edit, kModelNameId, "&Model Name :");
  Add(Kind::Edit, kAuthorId, "&Author :");
  DialogControl& box = Add(Kind::MultiEdit, kDescriptionId, "&Description :");
  box.width = 60;
  box.lines = 8;
  AddButtons("Save", "Cancel");
}

void LayoutMgrPropDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kModelNameId, modelName);
  exchange.Text(kAuthorId, author);
  exchange.Text(kDescriptionId, description);
}

}  // namespace morvane
