#pragma once

#include <iosfwd>
#include <string_view>

namespace morvane {

class Arguments;

/// The jobs of the command line that run a chart; see `CommandLine::Handler`.
struct RunJobs {
  static constexpr std::string_view kJUnit = "--junit";
  static constexpr std::string_view kLeast = "--min";

  /// FILE [EVENT...]: prints the trace of a run that begins and gets these events.
  static int Simulate(Arguments& arguments, std::ostream& out, std::ostream& err);
  /// TRACE FILE [--export OUT]: says where the trace and the chart part, if they do, and paints
  /// the chart as it stands at the end of the trace. "-" reads the trace from standard input.
  static int Replay(Arguments& arguments, std::ostream& out, std::ostream& err);
  /// [--min PERCENT] FILE TRACE...: prints what of the chart the traces reach.
  static int Coverage(Arguments& arguments, std::ostream& out, std::ostream& err);
  /// [--junit] FILE...: runs the tests that stand beside the charts.
  static int Test(Arguments& arguments, std::ostream& out, std::ostream& err);
};

}  // namespace morvane
