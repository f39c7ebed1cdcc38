#pragma once

#include <stdexcept>
#include <string_view>

#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

/// The machine of a sketched chart.
inline Machine SketchedMachine(std::string_view sketch) {
  BuiltMachine built = MachineBuilder::FromText(ChartSketch(sketch));
  if (!built.machine) throw std::runtime_error(built.problems.front().message);
  return std::move(*built.machine);
}

/// Off and On, with a place inside On that only "up" leads to, if its guard lets it; nothing takes
/// "never".
inline Machine Lamp() {
  return SketchedMachine(R"(
initial 1
state 2 Off
state 3 On
  initial 4
  state 5 Dim
  state 6 Bright
arrow 11 1 2
arrow 12 2 3
message 22 12 go
arrow 13 3 2
message 23 13 go, never
arrow 14 4 5
arrow 15 5 6
message 25 15 up | level > 3
arrow 16 6 5
message 26 16 down
)");
}

}  // namespace morvane
