#include "dialogs/CLineProperty.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/DataExchange.h"

CLineProperty::CLineProperty() : CDialog("Line Properties") {
  CColorComboEx::Attach(Add(DialogControl::Kind::Combo, IDC_COLOR, "Color:"));
  PenPicker::Attach(Add(DialogControl::Kind::Combo, IDC_STYLE, "Style:"));
  AddButtons("OK", "Cancel");
}

void CLineProperty::DoDataExchange(DataExchange& exchange) {
  exchange.Index(IDC_COLOR, colourIndex);
  exchange.Index(IDC_STYLE, styleIndex);
}
