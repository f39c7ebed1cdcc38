#include "tests/generators/rig/RigLanguage.h"

namespace morvane {

namespace {

constexpr const char* kWarnings = " -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror ";

std::string Joined(const RigChart& chart, const std::string& prefix) {
  std::string events;
  for (const std::string& event : chart.events) {
    if (!events.empty()) events += ", ";
    events += prefix + event;
  }
  return events;
}

std::string CProgram(const std::vector<RigChart>& charts) {
  std::string text;
  for (const RigChart& chart : charts) text += "#include \"" + chart.name + ".h\"\n";
  text += "#include <stddef.h>\n#include <stdio.h>\n";
  std::string calls;
  for (const RigChart& chart : charts) {
    const std::string& name = chart.name;
    text += "static void run_" + name + "(void)\n{\n  static const " + name + "Event events[] = {" +
            Joined(chart, name + "Event_") + "};\n  " + name +
            " machine;\n  size_t i;\n  (void)printf(\"== " + chart.number + "\\n\");\n  " + name +
            "_Init(&machine, NULL);\n  " + name +
            "_Start(&machine);\n  for (i = 0; i < sizeof events / sizeof events[0]; i++) {\n"
            "    (void)" +
            name + "_Dispatch(&machine, events[i]);\n  }\n}\n";
    calls += "  run_" + name + "();\n";
  }
  return text + "int main(void)\n{\n" + calls + "  return 0;\n}\n";
}

std::string CppProgram(const std::vector<RigChart>& charts) {
  std::string text = "#include <cstdio>\n";
  for (const RigChart& chart : charts) text += "#include \"" + chart.name + ".h\"\n";
  std::string calls;
  for (const RigChart& chart : charts) {
    const std::string& name = chart.name;
    text += "static void Run" + name + "() {\n  static const " + name + "::Event events[] = {" +
            Joined(chart, name + "::Event::") + "};\n  std::printf(\"== " + chart.number +
            "\\n\");\n  " + name +
            " machine;\n  machine.Start();\n  for (const auto event : events) "
            "(void)machine.Dispatch(event);\n}\n";
    calls += "  Run" + name + "();\n";
  }
  return text + "int main() {\n" + calls + "}\n";
}

std::string ManagedProgram(const std::vector<RigChart>& charts, bool java) {
  std::string methods;
  std::string calls;
  for (const RigChart& chart : charts) {
    const std::string& name = chart.name;
    methods += "  static void run" + name + "() {\n    " +
               (java ? "System.out.println" : "System.Console.WriteLine") +
               "(\"== " + chart.number + "\");\n    " + name + " machine = new " + name +
               "();\n    machine." + (java ? "start" : "Start") + "();\n    " +
               (java ? "for (" : "foreach (") + name + ".Event e " + (java ? ": new " : "in new ") +
               name + ".Event[] {" + Joined(chart, name + ".Event.") + "}) machine." +
               (java ? "dispatch" : "Dispatch") + "(e);\n  }\n";
    calls += "    run" + name + "();\n";
  }
  // Without a buffer of its own each line would go to the system by itself.
  const std::string buffer =
      java ? "    java.io.PrintStream out = new java.io.PrintStream(new "
             "java.io.FileOutputStream(java.io.FileDescriptor.out), false);\n    System.setOut(new "
             "java.io.PrintStream(new java.io.BufferedOutputStream(out, 1 << 16), false));\n"
           : "    System.Console.SetOut(new System.IO.StreamWriter("
             "System.Console.OpenStandardOutput()));\n";
  return std::string(java ? "public class Rig {\n" : "public static class Rig {\n") + methods +
         (java ? "  public static void main(String[] arguments) {\n"
               : "  public static void Main() {\n") +
         buffer + calls +
         (java ? "    System.out.flush();\n" : "    System.Console.Out.Flush();\n") + "  }\n}\n";
}

}  // namespace

std::vector<RigLanguage> RigLanguages(const std::string& scxmlRunner) {
  const std::string warnings = kWarnings;
  std::vector<RigLanguage> languages = {
      {TargetLanguage::C,
       "c",
       "rig_main.c",
       {"gcc -std=c99" + warnings + "*.c -o rig", "clang -std=c99 -fsyntax-only" + warnings + "*.c",
        "./rig"}},
      {TargetLanguage::Cpp,
       "cpp",
       "RigMain.cpp",
       {"g++ -std=c++17 -fno-exceptions -fno-rtti" + warnings + "*.cpp -o rig",
        "clang++ -std=c++17 -fsyntax-only -fno-exceptions -fno-rtti" + warnings + "*.cpp",
        "./rig"}},
      {TargetLanguage::CSharp,
       "cs",
       "Rig.cs",
       {"mcs -warn:4 -warnaserror -out:rig.exe *.cs", "mono rig.exe"}},
      {TargetLanguage::Java,
       "java",
       "Rig.java",
       {"javac -encoding UTF-8 -Xlint:all -Werror *.java", "java -Xshare:auto -cp . Rig"}}};
  if (!scxmlRunner.empty()) {
    languages.push_back({TargetLanguage::Xml, "xml", "", {scxmlRunner + " events.txt"}});
  }
  return languages;
}

std::string RigProgram(TargetLanguage language, const std::vector<RigChart>& charts) {
  switch (language) {
    case TargetLanguage::C: return CProgram(charts);
    case TargetLanguage::Cpp: return CppProgram(charts);
    case TargetLanguage::CSharp: return ManagedProgram(charts, false);
    case TargetLanguage::Java: return ManagedProgram(charts, true);
    case TargetLanguage::Xml: break;
  }
  return {};
}

}  // namespace morvane
