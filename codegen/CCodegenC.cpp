#include "codegen/CCodegenC.h"

#include "codegen/CodegenControls.h"
#include "platform/DataExchange.h"

void CCodegenC::AddControls(CDialog& sheet, int page) {
  sheet.Add(DialogControl::Kind::Group, IDC_INFO, "Additional Info (Optional)", page);
  AddCodeBox(sheet, IDC_INCLUDES, "Include Files :", IDC_INFO);
  AddCodeBox(sheet, IDC_DECLARATIONS, "Additional Declarations :", IDC_INFO);
}

void CCodegenC::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_INCLUDES, includes);
  exchange.Text(IDC_DECLARATIONS, declarations);
}
