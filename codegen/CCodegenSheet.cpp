#include "codegen/CCodegenSheet.h"

#include "resources/Texts.h"

CCodegenSheet::CCodegenSheet() : CPropertySheet(LoadText(IDS_CODEGEN_CAPTION)) {
  AddPage(pageCpp);
  AddPage(pageC);
  AddPage(pageJava);
  AddPage(pageCSharp);
  AddButtons("OK", "Cancel");
}
