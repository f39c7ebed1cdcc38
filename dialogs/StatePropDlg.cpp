#include "dialogs/StatePropDlg.h"

#include "platform/DataExchange.h"
#include "platform/Dialogs.h"

StatePropDlg::StatePropDlg() : CDialog("State Properties") {
  using Kind = DialogControl::Kind;
  Add(Kind::Edit, IDC_NAME, "State name :");
  Add(Kind::CheckBox, IDC_HISTORY, "History");
  Add(Kind::Group, IDC_BACKGROUND, "Background");
  Add(Kind::Row, IDC_BACKGROUND_ROW, "", IDC_BACKGROUND);
  Add(Kind::CheckBox, IDC_TRANSPARENT, "Transparent", IDC_BACKGROUND_ROW);
  Add(Kind::Button, IDC_BG_COLOR, "Color...", IDC_BACKGROUND_ROW);
  AddButtons("Save", "Cancel");
}

void StatePropDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_NAME, name);
  exchange.Check(IDC_HISTORY, history);
  exchange.Check(IDC_TRANSPARENT, transparent);
}

void StatePropDlg::OnInitDialog() { EnableButtons(); }

void StatePropDlg::EnableButtons() { Enable(IDC_BG_COLOR, transparent == 0); }

void StatePropDlg::OnClicked(int id) {
  switch (id) {
    case IDC_TRANSPARENT:
      UpdateData(true);
      EnableButtons();
      break;
    case IDC_BG_COLOR: ChooseColor(bgColor); break;
    default: break;
  }
}
