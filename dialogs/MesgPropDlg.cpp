#include "dialogs/MesgPropDlg.h"

#include "platform/Dialogs.h"
#include "platform/FieldExchange.h"
#include "resources/Texts.h"

namespace morvane {

MesgPropDlg::MesgPropDlg() : Dialog(""), title(LoadText(IDS_MESG_PROPERTIES)) {
  using Kind = DialogControl::Kind;
  Add(Kind::Group, kBackgroundId, "Background");
  Add(Kind::Row, kBackgroundRowId, "", kBackgroundId);
  Add(Kind::CheckBox, kTransparentId, "&Transparent", kBackgroundRowId);
  Add(Kind::Button, kBgColourId, "&Color...", kBackgroundRowId).spoken = "Background color";
  Add(Kind::Group, kBorderId, "Border");
  Add(Kind::Row, kBorderRowId, "", kBorderId);
  Add(Kind::CheckBox, kNoBorderId, "No &Border", kBorderRowId);
  Add(Kind::Button, kBorderColourId, "C&olor...", kBorderRowId).spoken = "Border color";
  Add(Kind::Group, kAnchorId, "Anchor");
  Add(Kind::CheckBox, kHiddenId, "&Hidden", kAnchorId);
  AddButtons("OK", "Cancel");
}

void MesgPropDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Check(kTransparentId, transparent);
  exchange.Check(kNoBorderId, noBorder);
  exchange.Check(kHiddenId, hidden);
}

void MesgPropDlg::OnFilled() {
  SetCaption(title);
  Enable(kNoBorderId, mayChangeBorder != 0);
  EnableButtons();
}

void MesgPropDlg::EnableButtons() {
  Enable(kBgColourId, transparent == 0);
  Enable(kBorderColourId, noBorder == 0);
}

void MesgPropDlg::OnClicked(int id) {
  switch (id) {
    case kTransparentId:
    case kNoBorderId:
      TakeFields();
      EnableButtons();
      break;
    case kBgColourId: ChooseColour(bgColor); break;
    case kBorderColourId: ChooseColour(borderColor); break;
    default: break;
  }
}

}  // namespace morvane
