#include "dialogs/EditMesgDlg.h"

#include "drawing/TextCodec.h"
#include "platform/FieldExchange.h"
#include "resources/Texts.h"

namespace morvane {

EditMesgDlg::EditMesgDlg() : Dialog("Editor") {
  DialogControl& box = Add(DialogControl::Kind::MultiEdit, kTextId, "");
  box.spoken = "Text";
  box.width = 48;
  box.lines = 10;
  AddButtons("Update", "Cancel");
}

void EditMesgDlg::ExchangeFields(FieldExchange& exchange) { exchange.Text(kTextId, text); }

void EditMesgDlg::OnFilled() { SetCaption(ToUtf8(title) + " " + LoadText(IDS_EDITOR)); }

}  // namespace morvane
