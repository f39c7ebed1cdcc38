#include "dialogs/EditMesgDlg.h"

#include "platform/DataExchange.h"
#include "resources/Texts.h"

EditMesgDlg::EditMesgDlg() : CDialog("Editor") {
  DialogControl& box = Add(DialogControl::Kind::MultiEdit, IDC_TEXT, "");
  box.width = 48;
  box.lines = 10;
  AddButtons("Update", "Cancel");
}

void EditMesgDlg::DoDataExchange(DataExchange& exchange) { exchange.Text(IDC_TEXT, text); }

void EditMesgDlg::OnInitDialog() { SetCaption(title + " " + LoadText(IDS_EDITOR)); }
