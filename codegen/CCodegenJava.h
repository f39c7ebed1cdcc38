#pragma once

#include "codegen/CodegenPackage.h"

namespace morvane {

/// The page of the texts that the Java generator reads.
class CCodegenJava : public CodegenPackage {
 public:
  static constexpr int kFirstId = 400;
  enum ControlId : int {
    kClassNameId = kFirstId + kClassName,
    kPackageId = kFirstId + kPackage,
    kDeclarationsId = kFirstId + kDeclarations
  };

  CCodegenJava() : CodegenPackage("&Java", "Additional &Info (Optional)", kFirstId, Syntax::Java) {}
};

}  // namespace morvane
