#include <functional>
#include <gtest/gtest.h>

#include "generators/ClassEmitter.h"
#include "generators/ClassFacts.h"
#include "generators/CommentText.h"
#include "generators/UserCode.h"
#include "tests/generators/MachineSketch.h"

namespace morvane {

namespace {

using Properties = ModelProperties;

/// Two states, an event and texts.
Machine Small() {
  Machine machine = MachineSketch()
                        .State("A", "", "Handle(event);")
                        .State("B")
                        .Initial("", "A")
                        .On("A", "X", "B", "a < b", "x();\n  y();")
                        .Build();
  machine.transitions.back().effect.line = 102;
  return machine;
}

Emission Emit(const ClassFacts& facts, const Machine& machine, bool debug = false) {
  return ClassEmitter(facts).Emit(machine, {debug, "C:\\a \"b\"\\Chart.mrv", "Chart"});
}

std::string Content(const Emission& emission) {
  std::string all;
  for (const GeneratedFile& file : emission.files) all += file.content;
  return all;
}

std::string Messages(const Emission& emission) {
  std::string all;
  for (const Problem& problem : emission.problems) {
    EXPECT_EQ(problem.severity, Problem::Severity::Warning);
    EXPECT_EQ(problem.id, 0);
    all += problem.message + '|';
  }
  return all;
}

TEST(ClassEmitter, NamesFilesAndClasses) {
  struct Case {
    const ClassFacts& facts;
    std::function<void(Properties&)> set;
    std::string file;
    std::string holds;
    std::string messages;
  };
  const Case cases[] = {
      {CppFacts(), [](Properties&) {}, "Context.h", "\nclass Context {\n", ""},
      {CppFacts(),
       [](Properties& all) {
         all.CppClassName = "int";
         all.CppIncludeFile = "sub\\dir/../my file.hpp";
         all.CppNamespace = "net::new::tcp";
       },
       "my_file.hpp", "\nnamespace net::new_::tcp {\n\n",
       "The C++ class can't be called \"int\", it is called \"int_\"|"
       "The C++ namespace can't be called \"net::new::tcp\", it is called \"net::new_::tcp\"|"
       "The C++ include file can't be called \"sub\\dir/../my file.hpp\", it is called "
       "\"my_file.hpp\"|"},
      {CppFacts(),
       [](Properties& all) {
         all.CppClassName = "CashMachine";
         all.CppNamespace = "a::bC";
         all.CppIncludeFile = "inc/cash.hh";
       },
       "cash.hh", "#ifndef A_B_C_CASH_MACHINE_H\n#define A_B_C_CASH_MACHINE_H\n", ""},
      {CppFacts(),
       [](Properties& all) { all.CppIncludeFile = "..", all.CppClassName = "9 \xC3\xA9"; },
       "_9__.h", "class _9__ {",
       "The C++ class can't be called \"9 \xC3\xA9\", it is called \"_9__\"|"
       "The C++ include file can't be called \"..\", it is called \"_9__.h\"|"},
      {CppFacts(), [](Properties& all) { all.CppIncludeFile = "a.cpp"; }, "a.h",
       "#include \"a.h\"\n",
       "The C++ include file can't be called \"a.cpp\", it is called \"a.h\"|"},
      {CSharpFacts(),
       [](Properties& all) {
         all.CSharpClassName = "State";
         all.CSharpPackage = "Net.Tcp";
       },
       "State_.cs", "namespace Net.Tcp\n{\n",
       "The C# class can't be called \"State\", it is called \"State_\"|"},
      {JavaFacts(),
       [](Properties& all) {
         all.JavaClassName = " ";
         all.JavaPackage = "net.default";
       },
       "Context.java", "package net.default_;\n",
       "The Java class can't be called \" \", it is called \"Context\"|"
       "The Java package can't be called \"net.default\", it is called \"net.default_\"|"},
  };
  for (const Case& each : cases) {
    Machine machine = Small();
    each.set(machine.properties);
    const Emission emission = Emit(each.facts, machine);
    EXPECT_EQ(emission.files[0].name, each.file);
    EXPECT_NE(Content(emission).find(each.holds), std::string::npos) << Content(emission);
    EXPECT_EQ(Messages(emission), each.messages);
  }
}

TEST(ClassEmitter, HoldsWhatTheModelSays) {
  Machine machine = Small();
  Properties& all = machine.properties;
  all.CppIncludes = "<vector>\nfoo.h";
  all.CppDeclarations = "int a;\nint Settle;";
  all.JavaDeclarations = "abstract void x();";
  all.CSharpDeclarations = "const int QueueSize = 2;";
  machine.propertyLines.cppIncludes = 7;
  machine.propertyLines.cppDeclarations = 8;
  const std::string file = R"("C:\\a \"b\"\\Chart.mrv")";
  struct Case {
    const ClassFacts& facts;
    bool debug;
    std::string text;
    bool isThere = true;
  };
  const Case cases[] = {
      {CppFacts(), false, "\n#include <vector>\n#include \"foo.h\"\n\n"},
      {CppFacts(), true, "\n#line 7 " + file + "\n#include <vector>\n#include \"foo.h\"\n#line "},
      {CppFacts(), true, "\n#line 8 " + file + "\n    int a;\n    int Settle;\n#line "},
      {CppFacts(), true, "#line 102 " + file + "\n    x();\n      y();\n#line "},
      {CppFacts(), false, "bool Context::Guard102() {\n    return a < b;\n}"},
      {CppFacts(), false, "enum class State : std::uint8_t {"},
      // A text calls another Handle, and means another event.
      {CppFacts(), false, "bool Dispatch(Event event_);"},
      {CppFacts(), false, "inline void Handle_(Event event_);"},
      {CSharpFacts(), true, "#line 102 \"C:\\a b\\Chart.mrv\"\n"},
      {CSharpFacts(), true, "\n#line default\n"},
      {CSharpFacts(), false, "QueueSize = 8", false},
      {JavaFacts(), false, "public abstract class Context {"},
      {JavaFacts(), true, "#line", false},
      {CppFacts(), false, "#line", false},
      {CSharpFacts(), false, "race", false},
      {JavaFacts(), false, "race", false},
      {CppFacts(), false, "TRACE", false},
      {CppFacts(), false, "ParentOf", false},
  };
  for (const Case& each : cases) {
    const std::string content = Content(Emit(each.facts, machine, each.debug));
    EXPECT_EQ(content.find(each.text) != std::string::npos, each.isThere) << each.text << "\n"
                                                                          << content;
  }
}

TEST(ClassEmitter, LeadsLinesBackToTheGeneratedFile) {
  const Emission emission = Emit(CppFacts(), Small(), true);
  int found = 0;
  for (const GeneratedFile& file : emission.files) {
    int number = 1;
    for (std::size_t at = 0; at < file.content.size(); ++number) {
      const std::size_t end = file.content.find('\n', at);
      const std::string line = file.content.substr(at, end - at);
      if (line.starts_with("#line ") && line.ends_with('"' + file.name + '"')) {
        EXPECT_EQ(line, "#line " + std::to_string(number + 1) + " \"" + file.name + '"');
        ++found;
      }
      at = end + 1;
    }
  }
  EXPECT_EQ(found, 3);
}

TEST(CommentText, DisarmsWhatEndsOrTurnsAComment) {
  struct Case {
    CommentStyle style;
    std::string text;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {CommentStyle::Line, "a\tb \r\n\nc\\\n\n", {"a b", "", "c\\ ."}},
      {CommentStyle::Line, "x\x01\x7F\xE2\x80\xAE\xE2\x81\xA6\xE2\x80\xA8y\xC2\x85", {"xy"}},
      {CommentStyle::Line, "caf\xE9 <a>", {"caf\xC3\xA9 <a>"}},
      {CommentStyle::Xml, "</summary> & @", {"&lt;/summary&gt; &amp; @"}},
      {CommentStyle::Html,
       "*/ \\u000a {@link} \xC3\xA9",
       {"&#42;/ &#92;u000a &#123;&#64;link&#125; &#233;"}},
      {CommentStyle::Html, " \n", {}},
  };
  for (const Case& each : cases) EXPECT_EQ(CommentLines(each.text, each.style), each.lines);
}

TEST(UserCode, MakesIncludeLines) {
  const std::pair<const char*, const char*> cases[] = {
      {"<a>\n \"b.h\" \nc/d.hpp", "#include <a>\n#include \"b.h\"\n#include \"c/d.hpp\""},
      {"# include <x>\n\n#define A \\\n<b>\nclass C;",
       "# include <x>\n\n#define A \\\n<b>\nclass C;"},
      {"/* see\nfoo.h\n*/\nfoo.h\n// bar.h", "/* see\nfoo.h\n*/\n#include \"foo.h\"\n// bar.h"},
      {"vector\nusing namespace std;\nint x[] = {1, 2};\n",
       "vector\nusing namespace std;\nint x[] = {1, 2};\n"},
  };
  for (const auto& [text, lines] : cases) EXPECT_EQ(IncludeLines(text), lines);
}

TEST(UserCode, FindsAbstractMembers) {
  const std::pair<const char*, bool> cases[] = {
      {"protected abstract void Send(Event e);", true},
      {"int a = f(\"abstract x();\"); // abstract y();\n/* abstract z(); */", false},
      {"abstract static class A { abstract void b(); }", false},
      {"static abstract class A {} abstract int c();", true},
      {"void f() { int abstractly; char c = '\\''; } String s = \"\"\"\nabstract x();\n\"\"\";",
       false},
      {"", false},
  };
  for (const auto& [code, isAbstract] : cases)
    EXPECT_EQ(HasAbstractMember(code), isAbstract) << code;
}

}  // namespace

}  // namespace morvane
