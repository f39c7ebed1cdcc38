#pragma once

#include "codegen/CCodegenC.h"
#include "codegen/CCodegenCPP.h"
#include "codegen/CCodegenCSharp.h"
#include "codegen/CCodegenJava.h"
#include "platform/PropertySheet.h"

namespace morvane {

/// The code generation properties of a chart, a page for each language.
class CCodegenSheet : public PropertySheet {
 public:
  CCodegenSheet();

  CCodegenC pageC;
  CCodegenCPP pageCpp;
  CCodegenJava pageJava;
  CCodegenCSharp pageCSharp;
};

}  // namespace morvane
