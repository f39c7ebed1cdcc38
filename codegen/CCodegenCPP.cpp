#include "codegen/CCodegenCPP.h"

#include "codegen/CodegenControls.h"
#include "platform/FieldExchange.h"

namespace morvane {

void CCodegenCPP::AddControls(Dialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, kContextId, "Context Class Info", page);
  AddNameBox(sheet, kClassNameId, "Class Na&me :", kContextId);
  AddNameBox(sheet, kIncludeFileId, "&Include File :", kContextId);
  AddNameBox(sheet, kNamespaceId, "Name&Space :", kContextId);
  sheet.Add(DialogControl::Kind::Group, kInfoId, "Additional Info (Optional)", page);
  AddCodeBox(sheet, kIncludesId, "Include &Files", kInfoId, Syntax::Cpp);
  AddCodeBox(sheet, kDeclarationsId, "Additional &Declarations :", kInfoId, Syntax::Cpp);
}

void CCodegenCPP::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kClassNameId, className);
  exchange.Text(kIncludeFileId, includeFile);
  exchange.Text(kNamespaceId, nameSpace);
  exchange.Text(kIncludesId, includes);
  exchange.Text(kDeclarationsId, declarations);
}

}  // namespace morvane
