#pragma once

#include "codegen/CodegenPackage.h"

namespace morvane {

/// The page of the texts that the C# generator reads.
class CCodegenCSharp : public CodegenPackage {
 public:
  static constexpr int kFirstId = 500;
  enum ControlId : int {
    kClassNameId = kFirstId + kClassName,
    kPackageId = kFirstId + kPackage,
    kDeclarationsId = kFirstId + kDeclarations
  };

  CCodegenCSharp()
      : CodegenPackage("C# (.&Net)", "Additional &Declaration (Optional)", kFirstId,
                       Syntax::CSharp) {}
};

}  // namespace morvane
