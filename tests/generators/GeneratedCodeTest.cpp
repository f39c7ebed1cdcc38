#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "generators/EmitterFor.h"
#include "generators/NamePool.h"
#include "tests/generators/TraceCases.h"
#include "tests/support/Places.h"

namespace morvane {

namespace {

/// A language and its tools. In the pieces of code @ stands for the class and $ for an event.
struct Toolchain {
  TargetLanguage language;
  std::string folder;
  std::string mainFile;
  std::vector<std::string> commands;  ///< of the shell; the last one runs the code
  int bigStates;
  std::string make, start, dispatch, isFinished;  ///< what the main program does with a machine
  std::string print;
  std::string head, main, tail;  ///< around the functions of the main program, and its calls
};

std::string Replaced(std::string text, char what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, 1, with);
  }
  return text;
}

/// Compiles the code of all cases at once, with a trace and without one, and keeps what each
/// prints.
class CodeRig {
 public:
  explicit CodeRig(const Toolchain& chain)
      : chain(chain), root(OutputPath("generators/") + chain.folder) {
    std::filesystem::remove_all(root);
    for (const char* package : {"traced", "plain"}) {
      std::filesystem::create_directories(root / package);
    }
  }
  void Add(const RigCase& each, const std::string& package) {
    const bool isC = chain.language == TargetLanguage::C;
    const std::string stem = isC ? package + each.name : each.name;
    const EmitOptions options = {package == "traced", "/a \"b\"/" + each.name + ".mrv", stem};
    const Emission emission = EmitterFor(chain.language)->Emit(Dressed(package, each), options);
    EXPECT_TRUE(emission.problems.empty()) << each.name;
    for (const GeneratedFile& file : emission.files) {
      const std::string path = package + '/' + file.name;
      std::ofstream(root / path) << file.content;
      if (path.ends_with(isC ? ".h" : ".cpp")) includes += "#include \"" + path + "\"\n";
    }
    const std::string dot = chain.language == TargetLanguage::Cpp ? "::" : ".";
    AddRunner(each, package, isC ? stem : package + dot + each.name);
  }
  /// By package and name, with a | between the lines.
  std::map<std::string, std::string> Run() {
    std::ofstream(root / "rig.h")
        << "#ifndef RIG_H\n#define RIG_H\n#include <stdio.h>\nextern int n;\n"
           "static inline void Say(const char *text) { (void)printf(\"say %s\\n\", text); }\n"
           "static inline _Bool Asked(void) { Say(\"asked\"); return n > 0; }\n#endif\n";
    const bool hasIncludes = !chain.head.starts_with("class");
    std::ofstream(root / chain.mainFile) << (hasIncludes ? includes : "") << chain.head << runners
                                         << chain.main << calls << chain.tail;
    std::map<std::string, std::string> printed;
    std::string output;
    for (const std::string& command : chain.commands) {
      const std::string line = "cd '" + root.string() + "' && (" + command + ") > said.txt 2>&1";
      const int status = std::system(line.c_str());
      std::ostringstream said;
      said << std::ifstream(root / "said.txt").rdbuf();
      output = said.str();
      EXPECT_EQ(status, 0) << command << '\n' << output.substr(0, 4000);
      if (status != 0) return printed;
    }
    std::istringstream lines(output);
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
  /// With what a case's texts may use, in each language, what would break comments, and fields that
  /// the generated code might call its own.
  static Machine Dressed(const std::string& package, const RigCase& each) {
    Machine machine = each.sketch.Build();
    ModelProperties& all = machine.properties;
    const std::string size = std::to_string(each.queueSize);
    all.CppClassName = all.CSharpClassName = all.JavaClassName = each.name;
    all.CppNamespace = all.CSharpPackage = all.JavaPackage = package;
    all.CppIncludeFile = package + each.name + ".h";
    all.Author = "C:\\users\\";
    all.Description = "*/ /* \\u000a <b> \xE2\x80\xAE \xFF\nends \\";
    const std::string c = package + each.name;
    all.CIncludes = "rig.h\n#define " + MacroName(c) + "_QUEUE_SIZE " + size;
    all.CDeclarations = "extern int state, event, scope;\n#define Post() Say(" + c +
                        "_Dispatch(self, " + c + "Event_Ping) ? \"posted\" : \"refused\")";
    all.CppIncludes = "<cstdio>\n#define " + MacroName(each.name) + "_QUEUE_SIZE " + size;
    const std::string fields = "int n = 0, state = 0, next = 0, queue = 0;\n";
    const auto declare = [&](const std::string& text, const std::string& print,
                             const std::string& boolean, const std::string& dispatch) {
      const bool posts = std::ranges::any_of(
          machine.events, [](const MachineEvent& event) { return event.name == "Ping"; });
      return fields + "void Say(" + text + " text) { " + print + "; }\n" + boolean +
             " Asked() { Say(\"asked\"); return n > 0; }" +
             (posts ? "\nvoid Post() { Say(" + dispatch + " ? \"posted\" : \"refused\"); }" : "");
    };
    all.CppDeclarations =
        declare("const char*", "std::printf(\"say %s\\n\", text)", "bool", "Dispatch(Event::Ping)");
    all.CSharpDeclarations =
        "public " + declare("string", "System.Console.WriteLine(\"say \" + text)", "bool",
                            "Dispatch(Event.Ping)");
    all.JavaDeclarations =
        declare("String", "System.out.println(\"say \" + text)", "boolean", "dispatch(Event.Ping)");
    if (each.queueSize != 8) {
      all.CSharpDeclarations += "\npublic const int QueueSize = " + size + ";";
      all.JavaDeclarations += "\nstatic final int QUEUE_SIZE = " + size + ";";
    }
    return machine;
  }
  void AddRunner(const RigCase& each, const std::string& package, const std::string& type) {
    const std::string call = "Run_" + package + each.name + "()";
    std::string code = chain.print + "(\"== " + package + ' ' + each.name + "\");\n" + chain.make;
    std::istringstream words(each.events);
    for (std::string word; words >> word;) {
      if (word == "START") {
        code += chain.start + ";\n";
        continue;
      }
      const bool isTaken =
          chain.language != TargetLanguage::C && (word == "int" || word == "double");
      code += "if (!" + Replaced(chain.dispatch, '$', isTaken ? word + '_' : word) + ") " +
              chain.print + "(\"refused\");\n";
    }
    code += "if (" + chain.isFinished + ") " + chain.print + "(\"finished\");\n";
    runners += "static void " + call + " {\n" + Replaced(code, '@', type) + "}\n";
    calls += call + ";\n";
  }

  const Toolchain& chain;
  const std::filesystem::path root;
  std::string includes;
  std::string runners;
  std::string calls;
};

class GeneratedCode : public testing::TestWithParam<Toolchain> {};

TEST_P(GeneratedCode, DoesWhatEachMachineShallDo) {
  std::vector<RigCase> cases = TraceCases();
  cases.push_back(BigTraceCase(GetParam().bigStates));
  CodeRig rig(GetParam());
  for (const RigCase& each : cases) {
    for (const char* package : {"traced", "plain"}) rig.Add(each, package);
  }
  std::map<std::string, std::string> printed = rig.Run();
  for (const RigCase& each : cases) {
    EXPECT_EQ(printed["traced " + each.name], each.expected) << each.name;
    EXPECT_EQ(printed["plain " + each.name], WithoutTrace(each.expected)) << each.name;
  }
}

const std::string kWarnings = " -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror ";
const std::string kC = " -std=c99 -I." + kWarnings + "*.c */*.c";
const std::string kCpp = " -std=c++17 -fno-exceptions -fno-rtti" + kWarnings + "Main.cpp";

INSTANTIATE_TEST_SUITE_P(
    Languages, GeneratedCode,
    testing::Values(
        Toolchain{TargetLanguage::C,
                  "C",
                  "main.c",
                  {"clang -fsyntax-only" + kC, "gcc -DNDEBUG -o main" + kC, "./main"},
                  300,
                  "@ m;\nn = 0;\n@_Init(&m, 0);\n",
                  "@_Start(&m)",
                  "@_Dispatch(&m, @Event_$)",
                  "@_IsFinished(&m)",
                  "(void)puts",
                  "int n, state, event, scope;\n",
                  "int main(void) {\n",
                  "return 0;\n}\n"},
        Toolchain{TargetLanguage::Cpp,
                  "Cpp",
                  "Main.cpp",
                  {"clang++ -fsyntax-only" + kCpp, "g++ -DNDEBUG -o main" + kCpp, "./main"},
                  300,
                  "@ m;\n",
                  "m.Start()",
                  "m.Dispatch(@::Event::$)",
                  "m.IsFinished()",
                  "std::puts",
                  "",
                  "int main() {\n",
                  "}\n"},
        Toolchain{TargetLanguage::CSharp,
                  "CSharp",
                  "Main.cs",
                  {"mcs -warn:4 -warnaserror -out:main.exe Main.cs */*.cs", "mono main.exe"},
                  1000,
                  "@ m = new @();\n",
                  "m.Start()",
                  "m.Dispatch(@.Event.$)",
                  "m.IsFinished()",
                  "System.Console.WriteLine",
                  "class Program {\n",
                  "static void Main() {\n",
                  "}\n}\n"},
        Toolchain{TargetLanguage::Java,
                  "Java",
                  "Main.java",
                  {"javac -Xlint:all -Werror -d out Main.java */*.java", "java -cp out Main"},
                  1000,
                  "@ m = new @();\n",
                  "m.start()",
                  "m.dispatch(@.Event.$)",
                  "m.isFinished()",
                  "System.out.println",
                  "class Main {\n",
                  "public static void main(String[] words) {\n",
                  "}\n}\n"}),
    [](const auto& info) { return info.param.folder; });

}  // namespace

}  // namespace morvane
