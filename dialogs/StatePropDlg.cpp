#include "dialogs/StatePropDlg.h"

#include "platform/Dialogs.h"
#include "platform/FieldExchange.h"

namespace morvane {

StatePropDlg::StatePropDlg() : Dialog("State Properties") {
  using Kind = DialogControl::Kind;
  Add(Kind::Edit, kNameId, "State &name :");
  Add(Kind::CheckBox, kHistoryId, "&History");
  Add(Kind::Group, kBackgroundId, "Background");
  Add(Kind::Row, kBackgroundRowId, "", kBackgroundId);
  Add(Kind::CheckBox, kTransparentId, "&Transparent", kBackgroundRowId);
  Add(Kind::Button, kBgColourId, "&Color...", kBackgroundRowId).spoken = "Background color";
  AddButtons("Save", "Cancel");
}

void StatePropDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kNameId, name);
  exchange.Check(kHistoryId, history);
  exchange.Check(kTransparentId, transparent);
}

void StatePropDlg::OnFilled() { EnableButtons(); }

void StatePropDlg::EnableButtons() { Enable(kBgColourId, transparent == 0); }

void StatePropDlg::OnClicked(int id) {
  switch (id) {
    case kTransparentId:
      TakeFields();
      EnableButtons();
      break;
    case kBgColourId: ChooseColour(bgColor); break;
    default: break;
  }
}

}  // namespace morvane
