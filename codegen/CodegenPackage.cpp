#include "codegen/CodegenPackage.h"

#include <utility>

#include "codegen/CodegenControls.h"
#include "platform/FieldExchange.h"

namespace morvane {

CodegenPackage::CodegenPackage(std::string title, std::string infoTitle, int firstId, Syntax syntax)
    : PropertyPage(std::move(title)),
      infoTitle(std::move(infoTitle)),
      firstId(firstId),
      syntax(syntax) {}

void CodegenPackage::AddControls(Dialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, firstId + kContext, "Context Class Info", page);
  AddNameBox(sheet, firstId + kClassName, "Class Na&me :", firstId + kContext);
  AddNameBox(sheet, firstId + kPackage, "&Package :", firstId + kContext);
  sheet.Add(DialogControl::Kind::Group, firstId + kInfo, infoTitle, page);
  AddCodeBox(sheet, firstId + kDeclarations, "", firstId + kInfo, syntax);
}

void CodegenPackage::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(firstId + kClassName, className);
  exchange.Text(firstId + kPackage, package);
  exchange.Text(firstId + kDeclarations, declarations);
}

}  // namespace morvane
