#include "codegen/CCodegenSheet.h"

#include "resources/Texts.h"

namespace morvane {

CCodegenSheet::CCodegenSheet() : PropertySheet(LoadText(IDS_CODEGEN_CAPTION)) {
  AddPage(pageCpp);
  AddPage(pageC);
  AddPage(pageJava);
  AddPage(pageCSharp);
  AddButtons("OK", "Cancel");
}

}  // namespace morvane
