#pragma once

#include "codegen/CCodegenPackage.h"

/// The page of the texts that the C# generator reads.
class CCodegenCSharp : public CCodegenPackage {
 public:
  static constexpr int kFirstId = 500;
  enum ControlId : int {
    IDC_CLASS_NAME = kFirstId + kClassName,
    IDC_PACKAGE = kFirstId + kPackage,
    IDC_DECLARATIONS = kFirstId + kDeclarations
  };

  CCodegenCSharp() : CCodegenPackage("C# (.Net)", "Additional Declaration (Optional)", kFirstId) {}
};
