#include <gtest/gtest.h>

#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

namespace {

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(Reading, FindsTheTextsOfTheProperties) {
  const std::string properties =
      "Door\nCDoor\nDoor.h\nhouse\n"
      "19\nINCLUDE BEGIN\n#include \"\"\n#error\nINCLUDE END\n5\nDECL BEGIN\nint c\nDECL END\n"
      "Me\n6\nDESC BEGIN\na\n\nb\nDESC END\n"
      "4\nINCLUDE BEGIN\nc.in\nINCLUDE END\n0\nDECL BEGIN\nDECL END\n"
      "JDoor\npack\n5\nDECL BEGIN\nint j\nDECL END\n"
      "SDoor\nspace\n5\nDECL BEGIN\nint s\nDECL END\n";
  const std::string text =
      Replaced(ChartSketch("initial 1\nstate 2 A\narrow 3 1 2"), SketchProperties(), properties);
  const BuiltMachine built = MachineBuilder::FromText(text);
  ASSERT_TRUE(built.machine) << built.problems.front().message;
  const Machine& machine = *built.machine;
  EXPECT_EQ(machine.properties.CppIncludes, "#include \"\"\n#error");
  EXPECT_EQ(machine.properties.Description, "a\n\nb");
  EXPECT_EQ(machine.properties.CSharpPackage, "space");
  const Machine::PropertyLines& lines = machine.propertyLines;
  EXPECT_EQ(LineOfText(text, lines.cppIncludes), "#include \"\"");
  EXPECT_EQ(LineOfText(text, lines.cppDeclarations), "int c");
  EXPECT_EQ(LineOfText(text, lines.cIncludes), "c.in");
  EXPECT_EQ(LineOfText(text, lines.cDeclarations), "DECL END") << "a block without a line";
  EXPECT_EQ(LineOfText(text, lines.javaDeclarations), "int j");
  EXPECT_EQ(LineOfText(text, lines.csharpDeclarations), "int s");
}

}  // namespace

}  // namespace morvane
