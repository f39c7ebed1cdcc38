#include "codegen/CCodegenC.h"

#include "codegen/CodegenControls.h"
#include "platform/FieldExchange.h"

namespace morvane {

void CCodegenC::AddControls(Dialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, kInfoId, "Additional Info (Optional)", page);
  AddCodeBox(sheet, kIncludesId, "Include &Files :", kInfoId, Syntax::C);
  AddCodeBox(sheet, kDeclarationsId, "Additional &Declarations :", kInfoId, Syntax::C);
}

void CCodegenC::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kIncludesId, includes);
  exchange.Text(kDeclarationsId, declarations);
}

}  // namespace morvane
