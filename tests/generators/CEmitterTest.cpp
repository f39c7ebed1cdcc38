#include <gtest/gtest.h>

#include "generators/CEmitter.h"
#include "tests/generators/MachineSketch.h"

namespace morvane {

namespace {

std::string Emitted(const Machine& machine, const std::string& stem, std::size_t file,
                    bool debug = false) {
  return CEmitter()
      .Emit(machine, {.debug = debug, .modelFile = "/a \"b\"/Model.mrv", .stem = stem})
      .files[file]
      .content;
}

MachineSketch Lamp() {
  return MachineSketch().State("Off").State("On").Initial("", "Off").On("Off", "Press", "On",
                                                                        "armed", "light();");
}

TEST(CEmitter, NamesThingsByTheModel) {
  Machine machine = Lamp().Build();
  machine.properties.ModelName = "A lamp */ #define";
  machine.properties.Author = "Ann\nAble";
  machine.properties.CIncludes = "<math.h>\nlamp_parts.h\n#define LAMP_CONTEXT struct lamp";
  machine.properties.CDeclarations = "static int armed;";
  const std::string header = Emitted(machine, "my lamp", 0);
  const std::string source = Emitted(machine, "my lamp", 1);
  for (const char* part :
       {"#ifndef MY_LAMP_H\n", "A lamp * / #define", "Author: Ann Able",
        "#include <math.h>\n#include \"lamp_parts.h\"\n#define LAMP_CONTEXT struct lamp\n",
        "bool my_lamp_Dispatch(my_lamp *self, my_lampEvent event);", "uint8_t state;"}) {
    EXPECT_NE(header.find(part), std::string::npos) << part << " is not in\n" << header;
  }
  for (const char* part :
       {"#include \"my lamp.h\"\n", "\nstatic int armed;\n", "return (armed);", "    light();\n"}) {
    EXPECT_NE(source.find(part), std::string::npos) << part << " is not in\n" << source;
  }
  EXPECT_EQ(source.find("#line"), std::string::npos);
  EXPECT_EQ(source.find("TRACE"), std::string::npos);
  EXPECT_NE(Emitted(machine, "int", 0).find("void int__Start(int_ *self);"), std::string::npos);
}

TEST(CEmitter, LeadsBackToTheModelAndToItself) {
  Machine machine = Lamp().Build();
  machine.transitions.back().effect.line = 47;
  const std::string source = Emitted(machine, "lamp", 1, true);
  const std::string model = "\n#line 47 \"/a \\\"b\\\"/Model.mrv\"\n    light();\n#line ";
  const std::size_t at = source.find(model);
  ASSERT_NE(at, std::string::npos) << source;
  const std::size_t number = at + model.size();
  const auto line =
      std::count(source.begin(), source.begin() + static_cast<long>(number), '\n') + 1;
  EXPECT_EQ(source.substr(number, source.find('\n', number) - number),
            std::to_string(line + 1) + " \"lamp.c\"");
}

}  // namespace

}  // namespace morvane
