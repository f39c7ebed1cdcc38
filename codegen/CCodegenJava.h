#pragma once

#include "codegen/CCodegenPackage.h"

/// The page of the texts that the Java generator reads.
class CCodegenJava : public CCodegenPackage {
 public:
  static constexpr int kFirstId = 400;
  enum ControlId : int {
    IDC_CLASS_NAME = kFirstId + kClassName,
    IDC_PACKAGE = kFirstId + kPackage,
    IDC_DECLARATIONS = kFirstId + kDeclarations
  };

  CCodegenJava() : CCodegenPackage("Java", "Additional Info (Optional)", kFirstId) {}
};
