#include <gtest/gtest.h>

#include "machine/TextBalance.h"

namespace morvane {

namespace {

TEST(TextBalance, HoldsInSoundCode) {
  for (const char* code : {
           "",
           "f(a[1], {2});",
           "s = \"(\"; c = '['; // }",
           "/* don't ( */ f();",
           "s = \"a\\\"(\"; c = '\\'';",
           "n = 1'000'000 + 0xFF'FF;",
           "s = R\"x()\" ( )x\";",
           "s = @\"c:\\\"; t = $@\"a\"\"(\"; u = @$\"[\";",
           "s = \"\"\"\n  say \"(\"\n  \"\"\";",
           "s = \"\" \"(\";",
           "s = `a\n(${b}`;",
           "s = \"a\\\nb\";",
           "c = u8'(';",
           "a < b > c; // don't",
       }) {
    const auto fault = TextBalance::Check(code);
    EXPECT_FALSE(fault) << code << ": " << (fault ? fault->what : "");
  }
}

TEST(TextBalance, FindsTheFirstFault) {
  struct Case {
    const char* code;
    const char* what;
    bool isOpen;
    int line;
  } const cases[] = {
      {"f(", "a \"(\"", true, 0},          {"a\n{\n[ ]", "a \"{\"", true, 1},
      {"a\n)", "a \")\"", false, 1},       {"a;\ns = \"x;\n\";", "a quote", true, 1},
      {"c = \"x\\", "a quote", true, 0},   {"it's", "a quote", true, 0},
      {"/* a\n /*", "a comment", true, 0}, {"R\"x(a)y\"", "a quote", true, 0},
      {"@\"a\"\"", "a quote", true, 0},    {"`a", "a quote", true, 0},
      {"// (\n(", "a \"(\"", true, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.code);
    const auto fault = TextBalance::Check(c.code);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->what, c.what);
    EXPECT_EQ(fault->isOpen, c.isOpen);
    EXPECT_EQ(fault->line, c.line);
  }
}

}  // namespace

}  // namespace morvane
