#pragma once

#include <string>
#include <vector>

#include "tests/generators/MachineSketch.h"

namespace morvane {

/// A machine, what happens to it, and what it shall print.
///
/// Its texts may use `n`, a number that begins with 0, `Say("...")`, which prints a line,
/// `Asked()`, which does and is whether n is above 0, and `Post()`, which dispatches an event Ping.
struct RigCase {
  std::string name;  ///< of the class, too
  MachineSketch sketch;
  std::string events;    ///< with blanks between them; START starts the machine
  std::string expected;  ///< lines with a | between them
  int queueSize = 8;
};

/// Machines with what no made-up chart of the rig has.
std::vector<RigCase> TraceCases();

/// Twice as many transitions as states; 1,000 states are more than one method in Java can hold.
RigCase BigTraceCase(int states);

/// What is left of a trace when there is no trace.
std::string WithoutTrace(const std::string& lines);

}  // namespace morvane
