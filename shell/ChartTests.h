#pragma once

#include <string>
#include <vector>

#include "simulation/TestRun.h"

namespace morvane {

class ChartRun;

/// The tests that stand beside a chart, in NAME.mrvtest.
class ChartTests {
 public:
  /// Nothing more than the name of the chart's file; empty for a chart that was never saved.
  explicit ChartTests(std::string chartPath) : chart(std::move(chartPath)) {}

  struct Result {
    std::vector<TestVerdict> verdicts;
    std::string reason;  ///< why the tests can't be run; empty if they were
  };
  Result Execute(const Machine& machine) const;
  /// Adds the case that does what was done in a run up to its place. The reason of a failure, which
  /// leaves the file as it was.
  std::string Record(const ChartRun& run, const std::string& name) const;
  std::string Path() const;

 private:
  std::string chart;
};

}  // namespace morvane
