#include <gtest/gtest.h>

#include "generators/CodeWriter.h"

namespace morvane {

namespace {

TEST(CodeWriter, IndentsAndCountsLines) {
  CodeWriter out(2);
  EXPECT_EQ(out.NextLine(), 1);
  out.Open("if (a) {");
  out.Gap();
  out.Line("b();");
  out.Gap();
  out.Gap();
  out.Lines("c();\n\n  d();\n\n");
  out.Reopen("} else {");
  out.Verbatim("#line 7\n e();");
  out.Close("}");
  EXPECT_EQ(out.Text(), "if (a) {\n  b();\n\n  c();\n\n    d();\n} else {\n#line 7\n e();\n}\n");
  EXPECT_EQ(out.NextLine(), 11);
}

}  // namespace

}  // namespace morvane
