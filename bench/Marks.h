#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

/// Prints the fastest repetition of each benchmark and keeps its time, for the ratios at the end. A
/// ratio of two times of one run says the same on a slow and on a fast machine.
class Marks : public benchmark::ConsoleReporter {
 public:
  Marks() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;
  /// Prints each ratio beside its mark. True if all hold; a ratio whose runs were filtered out is
  /// passed over.
  bool Report() const;

 private:
  double Ratio(const std::string& work, const std::string& measure) const;

  std::map<std::string, double> best;  ///< seconds by name
};
