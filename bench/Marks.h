#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace morvane {

/// Prints the fastest repetition of each benchmark and keeps its time, for the marks at the end.
/// Most are ratios of two times of one run, which say the same on a slow and on a fast machine.
class Marks : public benchmark::ConsoleReporter {
 public:
  Marks() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;
  /// Prints what was measured beside its mark. True if all hold; a mark whose runs were filtered
  /// out is passed over. With a slack other than 1 a ratio may be so many times its mark, and marks
  /// in seconds are left out.
  bool Report(double slack) const;

  /// Takes the factor `--slack=` out of the arguments by which marks may be missed; 1 if there is
  /// none.
  static double TakeSlack(int& argc, char** argv);

 private:
  double TimeOf(const std::string& work) const;

  std::map<std::string, double> best;     ///< seconds by name
  std::map<std::string, double> counted;  ///< what a benchmark counts, by name
};

}  // namespace morvane
