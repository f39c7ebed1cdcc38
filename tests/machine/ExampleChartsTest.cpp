#include <gtest/gtest.h>

#include "machine/MachineBuilder.h"

namespace morvane {

namespace {

/// The charts that come with the program and with its guide.
TEST(ExampleCharts, MeanSomethingWithoutAProblem) {
  const std::pair<const char*, std::size_t> cases[] = {{"Examples/Socket_C++/Socket.mrv", 17},
                                                       {"Examples/Lift/Lift.mrv", 12},
                                                       {"Examples/CashMachine/CashMachine.mrv", 14},
                                                       {"docs/charts/Door.mrv", 3}};
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
