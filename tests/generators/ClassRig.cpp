#include "tests/generators/ClassRig.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "generators/ClassEmitter.h"
#include "generators/ClassFacts.h"
#include "generators/NamePool.h"

namespace morvane {

namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream in(path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool Posts(const Machine& machine) {
  return std::ranges::any_of(machine.events, [](const auto& each) { return each.name == "Ping"; });
}

/// What a case's texts may use, in each language.
void DressCpp(Machine& machine, int queueSize) {
  ModelProperties& all = machine.properties;
  all.CppIncludes = "<cstdio>\n#define " + MacroName(all.CppClassName) + "_QUEUE_SIZE " +
                    std::to_string(queueSize);
  all.CppDeclarations =
      "int n = 0, state = 0, next = 0, queue = 0;\nvoid Say(const char* text) { std::printf(\"say "
      "%s\\n\", text); }\n"
      "bool Asked() { Say(\"asked\"); return n > 0; }";
  if (Posts(machine)) {
    all.CppDeclarations +=
        "\nvoid Post() { Say(Dispatch(Event::Ping) ? \"posted\" : \"refused\"); }";
  }
}

void DressCSharp(Machine& machine, int queueSize) {
  std::string& text = machine.properties.CSharpDeclarations;
  text =
      "public int n = 0, state = 0, next = 0, queue = 0;\nvoid Say(string text) { "
      "System.Console.WriteLine(\"say \" + text); }\n"
      "bool Asked() { Say(\"asked\"); return n > 0; }";
  if (Posts(machine)) {
    text += "\nvoid Post() { Say(Dispatch(Event.Ping) ? \"posted\" : \"refused\"); }";
  }
  if (queueSize != 8) text += "\npublic const int QueueSize = " + std::to_string(queueSize) + ";";
}

void DressJava(Machine& machine, int queueSize) {
  std::string& text = machine.properties.JavaDeclarations;
  text =
      "int n = 0, state = 0, next = 0, queue = 0;\nvoid Say(String text) { "
      "System.out.println(\"say \" + text); }\n"
      "boolean Asked() { Say(\"asked\"); return n > 0; }";
  if (Posts(machine)) {
    text += "\nvoid Post() { Say(dispatch(Event.Ping) ? \"posted\" : \"refused\"); }";
  }
  if (queueSize != 8) {
    text += "\nstatic final int QUEUE_SIZE = " + std::to_string(queueSize) + ";";
  }
}

}  // namespace

ClassRig::ClassRig(const ClassFacts& facts, const std::string& folder,
                   const std::vector<RigCase>& cases)
    : facts(facts), folder(folder) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  std::string runners;
  for (const std::string package : {kTraced, kPlain}) {
    const std::string inside = folder + '/' + package;
    std::filesystem::create_directories(inside);
    for (const RigCase& each : cases) {
      const EmitOptions options = {package == kTraced, "/a \"b\"/" + each.name + ".mrv", each.name};
      const Emission emission = ClassEmitter(facts).Emit(Dressed(package, each), options);
      EXPECT_TRUE(emission.problems.empty()) << each.name;
      for (const GeneratedFile& file : emission.files) {
        std::ofstream(inside + '/' + file.name) << file.content;
      }
      runners += Runner(package, each);
    }
  }
  WriteMain(runners);
}

Machine ClassRig::Dressed(const std::string& package, const RigCase& each) const {
  Machine machine = each.sketch.Build();
  ModelProperties& all = machine.properties;
  all.CppClassName = all.CSharpClassName = all.JavaClassName = each.name;
  all.CppNamespace = all.CSharpPackage = all.JavaPackage = package;
  all.CppIncludeFile = package + each.name + ".h";
  // What would break comments, and fields that the generated code might call its own
  all.Author = "C:\\users\\";
  all.Description = "*/ /* \\u000a <b> \xE2\x80\xAE \xFF\nends \\";
  DressCpp(machine, each.queueSize);
  DressCSharp(machine, each.queueSize);
  DressJava(machine, each.queueSize);
  return machine;
}

std::string ClassRig::Runner(const std::string& package, const RigCase& each) const {
  const std::string scope(facts.scope);
  const std::string type = package + scope + each.name;
  const auto method = [this](std::string name) {
    if (facts.lowerMethods) name[0] = static_cast<char>(name[0] - 'A' + 'a');
    return "m." + name;
  };
  std::string code = "Print(\"== " + package + ' ' + each.name + "\");\n";
  code += facts.hasHeader ? type + " m;\n" : type + " m = new " + type + "();\n";
  std::istringstream words(each.events);
  for (std::string word; words >> word;) {
    if (word == "START") {
      code += method("Start") + "();\n";
      continue;
    }
    if (word == "int" || word == "double") word += '_';
    code += "if (!" + method("Dispatch") + '(' + type + scope + "Event" + scope + word +
            ")) Print(\"refused\");\n";
  }
  code += "if (" + method("IsFinished") + "()) Print(\"finished\");\n";
  // Each in a function of its own
  return "static void Run_" + package + each.name + "() {\n" + code + "}\n";
}

void ClassRig::WriteMain(const std::string& runners) const {
  std::string calls;
  std::string includes;  // one file, as the compiler would read the same headers for each again
  for (std::size_t at = 0; (at = runners.find("Run_", at)) != std::string::npos; ++at) {
    const std::string call = runners.substr(at, runners.find('(', at) - at);
    calls += call + "();\n";
    const std::string source = call.substr(4) + ".cpp\"\n";
    includes += "#include \"" + std::string(call[4] == 't' ? kTraced : kPlain) + '/' + source;
  }
  std::ofstream out(folder + "/Main" + std::string(facts.fileEnding));
  if (facts.hasHeader) {
    out << includes << "static void Print(const char* line) { std::puts(line); }\n"
        << runners << "int main() {\n"
        << calls << "}\n";
  } else if (facts.lowerMethods) {
    out << "class Main {\nstatic void Print(String line) { System.out.println(line); }\n"
        << runners << "public static void main(String[] words) {\n"
        << calls << "}\n}\n";
  } else {
    out << "static class Program {\n"
        << "static void Print(string line) { System.Console.WriteLine(line); }\n"
        << runners << "static void Main() {\n"
        << calls << "}\n}\n";
  }
}

std::string ClassRig::Shell(const std::string& command) const {
  const std::string line = "cd '" + folder + "' && (" + command + ") > said.txt 2>&1";
  if (std::system(line.c_str()) == 0) return {};
  return command + "\n" + ReadAll(folder + "/said.txt").substr(0, 4000);
}

std::map<std::string, std::string> ClassRig::Run(const std::string& command,
                                                 std::string& failure) const {
  std::map<std::string, std::string> printed;
  failure = Shell(command);
  std::istringstream lines(ReadAll(folder + "/said.txt"));
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

}  // namespace morvane
