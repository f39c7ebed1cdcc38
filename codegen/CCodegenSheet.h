#pragma once

#include "codegen/CCodegenC.h"
#include "codegen/CCodegenCPP.h"
#include "codegen/CCodegenCSharp.h"
#include "codegen/CCodegenJava.h"
#include "platform/CPropertySheet.h"

/// The code generation properties of a chart, a page for each language.
class CCodegenSheet : public CPropertySheet {
 public:
  CCodegenSheet();

  CCodegenC pageC;
  CCodegenCPP pageCpp;
  CCodegenJava pageJava;
  CCodegenCSharp pageCSharp;
};
