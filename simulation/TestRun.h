#pragma once

#include <string>
#include <vector>

#include "simulation/ChartTest.h"

namespace morvane {

class Simulation;
struct Machine;

/// What came of a case.
struct TestVerdict {
  std::string name;
  bool passed = false;
  int line = 0;        ///< of the tests' file, where it failed
  std::string reason;  ///< of a failure

  friend bool operator==(const TestVerdict&, const TestVerdict&) = default;
};

/// Runs the tests of a chart on the machine that it is. Each case begins anew.
class TestRun {
 public:
  /// The machine has to outlive this object.
  explicit TestRun(const Machine& machine) : machine(machine) {}

  TestVerdict Execute(const ChartTest& test) const;
  std::vector<TestVerdict> ExecuteAll(const std::vector<ChartTest>& tests) const;

  /// The case that does what was done in a simulation, up to the place that it shows, and expects
  /// what came of it.
  static ChartTest Record(const Simulation& simulation, const std::string& name);

 private:
  const Machine& machine;
};

}  // namespace morvane
