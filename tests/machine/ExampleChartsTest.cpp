#include <gtest/gtest.h>

#include "machine/MachineBuilder.h"

namespace morvane {

namespace {

/// The charts that come with the program and with its guide.
TEST(ExampleCharts, MeanSomethingWithoutAProblem) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"Examples/Socket_C++/Socket.mrv", 17},
      {"Examples/Lift/Lift.mrv", 12},
      {"Examples/CashMachine/CashMachine.mrv", 14},
      {"Examples/Turnstile_C/Turnstile.mrv", 5},
      {"Examples/WashingMachine_C#/WashingMachine.mrv", 9},
      {"Examples/Safe_Java/Safe.mrv", 4},
      {"Examples/Alarm_XML/Alarm.mrv", 5},
      {"docs/charts/Door.mrv", 3},
      {"docs/charts/Door4.mrv", 4}};
  for (const auto& [path, states] : cases) {
    SCOPED_TRACE(path);
    const BuiltMachine built =
        MachineBuilder::FromFile(std::string(MORVANE_SOURCE_DIR) + '/' + path);
    for (const Problem& problem : built.problems) ADD_FAILURE() << FormatProblem(path, problem);
    ASSERT_TRUE(built.machine);
    EXPECT_EQ(built.machine->states.size(), states);
  }
}

}  // namespace

}  // namespace morvane
