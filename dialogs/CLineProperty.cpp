#include "dialogs/CLineProperty.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/FieldExchange.h"

namespace morvane {

CLineProperty::CLineProperty() : Dialog("Line Properties") {
  DialogControl& colour = Add(DialogControl::Kind::Combo, kColourId, "&Color:");
  colour.spoken = "Line color";
  CColorComboEx::Attach(colour);
  DialogControl& style = Add(DialogControl::Kind::Combo, kStyleId, "&Style:");
  style.spoken = "Line style";
  PenPicker::Attach(style);
  AddButtons("OK", "Cancel");
}

void CLineProperty::ExchangeFields(FieldExchange& exchange) {
  exchange.Index(kColourId, colourIndex);
  exchange.Index(kStyleId, styleIndex);
}

}  // namespace morvane
