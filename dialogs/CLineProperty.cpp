#include "dialogs/CLineProperty.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/FieldExchange.h"

namespace morvane {

CLineProperty::CLineProperty() : Dialog("Line Properties") {
  CColorComboEx::Attach(Add(DialogControl::Kind::Combo, kColourId, "Color:"));
  PenPicker::Attach(Add(DialogControl::Kind::Combo, kStyleId, "Style:"));
  AddButtons("OK", "Cancel");
}

void CLineProperty::ExchangeFields(FieldExchange& exchange) {
  exchange.Index(kColourId, colourIndex);
  exchange.Index(kStyleId, styleIndex);
}

}  // namespace morvane
