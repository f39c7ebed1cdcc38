#include "dialogs/MesgPropDlg.h"

#include "platform/DataExchange.h"
#include "platform/Dialogs.h"
#include "resources/Texts.h"

MesgPropDlg::MesgPropDlg() : CDialog(""), title(LoadText(IDS_MESG_PROPERTIES)) {
  using Kind = DialogControl::Kind;
  Add(Kind::Group, IDC_BACKGROUND, "Background");
  Add(Kind::Row, IDC_BACKGROUND_ROW, "", IDC_BACKGROUND);
  Add(Kind::CheckBox, IDC_TRANSPARENT, "Transparent", IDC_BACKGROUND_ROW);
  Add(Kind::Button, IDC_BG_COLOR, "Color...", IDC_BACKGROUND_ROW);
  Add(Kind::Group, IDC_BORDER, "Border");
  Add(Kind::Row, IDC_BORDER_ROW, "", IDC_BORDER);
  Add(Kind::CheckBox, IDC_NO_BORDER, "No Border", IDC_BORDER_ROW);
  Add(Kind::Button, IDC_BORDER_COLOR, "Color...", IDC_BORDER_ROW);
  Add(Kind::Group, IDC_ANCHOR, "Anchor");
  Add(Kind::CheckBox, IDC_HIDDEN, "Hidden", IDC_ANCHOR);
  AddButtons("OK", "Cancel");
}

void MesgPropDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Check(IDC_TRANSPARENT, transparent);
  exchange.Check(IDC_NO_BORDER, noBorder);
  exchange.Check(IDC_HIDDEN, hidden);
}

void MesgPropDlg::OnInitDialog() {
  SetCaption(title);
  Enable(IDC_NO_BORDER, mayChangeBorder != 0);
  EnableButtons();
}

void MesgPropDlg::EnableButtons() {
  Enable(IDC_BG_COLOR, transparent == 0);
  Enable(IDC_BORDER_COLOR, noBorder == 0);
}

void MesgPropDlg::OnClicked(int id) {
  switch (id) {
    case IDC_TRANSPARENT:
    case IDC_NO_BORDER:
      UpdateData(true);
      EnableButtons();
      break;
    case IDC_BG_COLOR: ChooseColor(bgColor); break;
    case IDC_BORDER_COLOR: ChooseColor(borderColor); break;
    default: break;
  }
}
