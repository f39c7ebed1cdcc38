#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace morvane {

/// The jobs of the command line that run a chart. Each takes what stands behind its option, and
/// gives the exit status; one that is not used as it should be gives `CommandLine::kWrongUse` and
/// says nothing.
struct RunJobs {
  /// [FILE EVENT...]: prints the trace of a run that begins and gets these events.
  static int Simulate(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);
  /// [TRACE FILE [--export OUT]]: says where the trace and the chart part, if they do, and paints
  /// the chart as it stands at the end of the trace. "-" reads the trace from standard input.
  static int Replay(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);
  /// [[--min PERCENT] FILE TRACE...]: prints what of the chart the traces reach.
  static int Coverage(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);
  /// [[--junit] FILE...]: runs the tests that stand beside the charts.
  static int Test(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);
};

}  // namespace morvane
