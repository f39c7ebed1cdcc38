#include "codegen/CCodegenCSharp.h"

#include "codegen/CodegenControls.h"
#include "platform/DataExchange.h"

void CCodegenCSharp::AddControls(CDialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, IDC_CONTEXT, "Context Class Info", page);
  AddNameBox(sheet, IDC_CLASS_NAME, "Class Name :", IDC_CONTEXT);
  AddNameBox(sheet, IDC_PACKAGE, "Package :", IDC_CONTEXT);
  sheet.Add(DialogControl::Kind::Group, IDC_INFO, "Additional Declaration (Optional)", page);
  AddCodeBox(sheet, IDC_DECLARATIONS, "", IDC_INFO);
}

void CCodegenCSharp::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_CLASS_NAME, className);
  exchange.Text(IDC_PACKAGE, package);
  exchange.Text(IDC_DECLARATIONS, declarations);
}
