#include "codegen/CCodegenCPP.h"

#include "codegen/CodegenControls.h"
#include "platform/DataExchange.h"

void CCodegenCPP::AddControls(CDialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, IDC_CONTEXT, "Context Class Info", page);
  AddNameBox(sheet, IDC_CLASS_NAME, "Class Name :", IDC_CONTEXT);
  AddNameBox(sheet, IDC_INCLUDE_FILE, "Include File :", IDC_CONTEXT);
  AddNameBox(sheet, IDC_NAMESPACE, "NameSpace :", IDC_CONTEXT);
  sheet.Add(DialogControl::Kind::Group, IDC_INFO, "Additional Info (Optional)", page);
  AddCodeBox(sheet, IDC_INCLUDES, "Include Files", IDC_INFO);
  AddCodeBox(sheet, IDC_DECLARATIONS, "Additional Declarations :", IDC_INFO);
}

void CCodegenCPP::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_CLASS_NAME, className);
  exchange.Text(IDC_INCLUDE_FILE, includeFile);
  exchange.Text(IDC_NAMESPACE, nameSpace);
  exchange.Text(IDC_INCLUDES, includes);
  exchange.Text(IDC_DECLARATIONS, declarations);
}
