#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "generators/CEmitter.h"
#include "generators/NamePool.h"
#include "tests/generators/TraceCases.h"
#include "tests/support/TempFolder.h"

namespace morvane {

namespace {

std::string Emitted(const Machine& machine, const std::string& stem, std::size_t file,
                    bool debug = false) {
  return CEmitter()
      .Emit(machine, {.debug = debug, .modelFile = "/a \"b\"/Model.mrv", .stem = stem})
      .files[file]
      .content;
}

/// What the texts of all cases share.
constexpr const char* kShared = R"(#ifndef RIG_H
#define RIG_H
#include <stdio.h>
extern int n;
static inline void Say(const char *text) { (void)printf("say %s\n", text); }
static inline _Bool Asked(void) { Say("asked"); return n > 0; }
#endif
)";

/// Compiles and runs every case as C, all in one program.
class CRig {
 public:
  void Add(const RigCase& each, bool debug) {
    const std::string name = (debug ? "traced" : "plain") + each.name;
    Machine machine = each.sketch.Build();
    ModelProperties& all = machine.properties;
    all.Description = "*/ /* \\u000a \xE2\x80\xAE \xFF\nends \\";
    all.CIncludes =
        "rig.h\n#define " + MacroName(name) + "_QUEUE_SIZE " + std::to_string(each.queueSize);
    all.CDeclarations = "extern int state, event, scope;\n#define Post() Say(" + name +
                        "_Dispatch(self, " + name + "Event_Ping) ? \"posted\" : \"refused\")";
    const Emission emission = CEmitter().Emit(
        machine, {.debug = debug, .modelFile = "/a \"b\"/" + name + ".mrv", .stem = name});
    for (const GeneratedFile& file : emission.files) folder.Write(file.name, file.content);
    includes += "#include \"" + name + ".h\"\n";
    AddRunner(each, name);
  }

  std::map<std::string, std::string> Run() {
    folder.Write("rig.h", kShared);
    folder.Write("main.c", includes + "int n, state, event, scope;\n" + runners +
                               "int main(void) {\n" + calls + "return 0;\n}\n");
    const std::string flags =
        " -std=c99 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror *.c ";
    EXPECT_EQ(Shell("clang -fsyntax-only" + flags), "");
    EXPECT_EQ(Shell("gcc -DNDEBUG -o main" + flags), "");
    EXPECT_EQ(Shell("./main"), "");
    std::map<std::string, std::string> printed;
    std::istringstream lines(folder.Read("said.txt"));
    std::string* current = nullptr;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("== ")) {
        current = &printed[line.substr(3)];
      } else if (current != nullptr) {
        *current += (current->empty() ? "" : "|") + line;
      }
    }
    return printed;
  }

 private:
  void AddRunner(const RigCase& each, const std::string& name) {
    runners += "static void run_" + name + "(void) {\n" + name +
               " m;\nn = 0;\n(void)puts(\"== " + name + "\");\n" + name + "_Init(&m, 0);\n";
    std::istringstream words(each.events);
    for (std::string word; words >> word;) {
      runners += word == "START" ? name + "_Start(&m);\n"
                                 : "if (!" + name + "_Dispatch(&m, " + name + "Event_" + word +
                                       ")) (void)puts(\"refused\");\n";
    }
    runners += "if (" + name + "_IsFinished(&m)) (void)puts(\"finished\");\n}\n";
    calls += "run_" + name + "();\n";
  }

  std::string Shell(const std::string& command) const {
    const std::string line =
        "cd '" + folder.Root().string() + "' && (" + command + ") > said.txt 2>&1";
    return std::system(line.c_str()) == 0
               ? std::string()
               : command + '\n' + folder.Read("said.txt").substr(0, 4000);
  }

  TempFolder folder;
  std::string includes;
  std::string runners;
  std::string calls;
};

TEST(CEmitter, DoesWhatEachMachineShallDo) {
  std::vector<RigCase> cases = TraceCases();
  cases.push_back(BigTraceCase(300));
  CRig rig;
  for (const RigCase& each : cases) {
    rig.Add(each, true);
    rig.Add(each, false);
  }
  std::map<std::string, std::string> printed = rig.Run();
  for (const RigCase& each : cases) {
    EXPECT_EQ(printed["traced" + each.name], each.expected) << each.name;
    EXPECT_EQ(printed["plain" + each.name], WithoutTrace(each.expected)) << each.name;
  }
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
