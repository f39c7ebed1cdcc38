#include <gtest/gtest.h>

#include "generators/ClassFacts.h"
#include "tests/generators/ClassRig.h"

namespace morvane {

namespace {

constexpr const char* kWarnings =
    " -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fno-exceptions -fno-rtti ";

struct Toolchain {
  const ClassFacts& facts;
  std::string folder;
  std::vector<std::string> compile;
  std::string run;
  int bigStates;
};

class ClassEmitterTrace : public testing::TestWithParam<Toolchain> {};

TEST_P(ClassEmitterTrace, IsTheSameInEachLanguage) {
  const Toolchain& chain = GetParam();
  std::vector<RigCase> cases = TraceCases();
  cases.push_back(BigTraceCase(chain.bigStates));
  const ClassRig rig(chain.facts, MORVANE_TEST_OUTPUT "/" + chain.folder, cases);
  for (const std::string& command : chain.compile) ASSERT_EQ(rig.Shell(command), "");
  std::string failure;
  std::map<std::string, std::string> printed = rig.Run(chain.run, failure);
  ASSERT_EQ(failure, "");
  for (const RigCase& each : cases) {
    EXPECT_EQ(printed["traced " + each.name], each.expected) << each.name;
    EXPECT_EQ(printed["plain " + each.name], WithoutTrace(each.expected)) << each.name;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Languages, ClassEmitterTrace,
    testing::Values(Toolchain{CppFacts(),
                              "Cpp",
                              {std::string("clang++ -fsyntax-only") + kWarnings + "Main.cpp",
                               std::string("g++ -DNDEBUG -o main") + kWarnings + "Main.cpp"},
                              "./main",
                              300},
                    Toolchain{CSharpFacts(),
                              "CSharp",
                              {"mcs -warn:4 -warnaserror -out:main.exe Main.cs */*.cs"},
                              "mono main.exe",
                              1000},
                    Toolchain{JavaFacts(),
                              "Java",
                              {"javac -Xlint:all -Werror -d out Main.java */*.java"},
                              "java -cp out Main",
                              1000}),
    [](const auto& info) { return info.param.folder; });

}  // namespace

}  // namespace morvane
