#include "dialogs/LayoutMgrPropDlg.h"

#include "platform/DataExchange.h"

LayoutMgrPropDlg::LayoutMgrPropDlg() : CDialog("Model Properties") {
  using Kind = DialogControl::Kind;
  Add(Kind::Edit, IDC_MODEL_NAME, "Model Name :");
  Add(Kind::Edit, IDC_AUTHOR, "Author :");
  DialogControl& box = Add(Kind::MultiEdit, IDC_DESCRIPTION, "Description :");
  box.width = 60;
  box.lines = 8;
  AddButtons("Save", "Cancel");
}

void LayoutMgrPropDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_MODEL_NAME, modelName);
  exchange.Text(IDC_AUTHOR, author);
  exchange.Text(IDC_DESCRIPTION, description);
}
