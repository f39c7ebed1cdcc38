#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "generators/TargetLanguage.h"

namespace morvane {

/// What the program was started for: a window, or a job that needs none.
class CommandLine {
 public:
  static constexpr int kSuccess = 0;
  static constexpr int kFailure = 1;
  static constexpr int kWrongUse = 2;

  /// Reads the arguments behind the program's name.
  static CommandLine Parse(const std::vector<std::string>& arguments);

  /// True for all that is done with no display and no window.
  bool IsJob() const { return job != Job::None; }
  /// The chart to open in a window; empty for a new one.
  const std::string& File() const { return file; }
  /// The window opens beside those of a program that runs already.
  bool IsNewInstance() const { return newInstance; }

  /// Does the job: success prints nothing but what was asked for, a failure says why on `err` and
  /// writes no output. Gives the exit status.
  int Run(std::ostream& out, std::ostream& err) const;

 private:
  using RunJob = int (*)(std::span<const std::string> arguments, std::ostream& out,
                         std::ostream& err);
  enum class Job {
    None,
    Help,
    Version,
    Convert,
    Export,
    Generate,
    Import,
    Check,
    Diff,
    Describe,
    Run,
    WrongUse
  };

  /// What stands behind the option, or in place of one, when a window opens.
  static CommandLine ParseWindow(std::span<const std::string> arguments);
  /// What stands behind "--generate".
  static CommandLine ParseGenerate(std::span<const std::string> arguments);
  /// What stands behind "--import".
  static CommandLine ParseImport(std::span<const std::string> arguments);
  /// What stands behind "--check".
  static CommandLine ParseCheck(std::span<const std::string> arguments);
  /// What stands behind "--diff", or behind "--export" in front of that.
  static CommandLine ParseDiff(std::span<const std::string> arguments);
  /// The job that runs a chart and is called so; null for none.
  static RunJob RunJobCalled(std::string_view option);
  int RunCheck(std::ostream& out) const;
  int RunChart(std::ostream& out, std::ostream& err) const;
  int RunConvert(std::ostream& err) const;
  int RunExport(std::ostream& err) const;
  int RunImport(std::ostream& err) const;
  int RunGenerate(std::ostream& err) const;

  Job job = Job::None;
  bool newInstance = false;
  TargetLanguage language = TargetLanguage::Cpp;
  std::string output;  ///< a file, or the folder of generated ones
  std::string file;
  std::vector<std::string> files;  ///< to check or to compare
  bool asJson = false;
  /// A job that runs a chart, and what stands behind its option.
  RunJob runJob = nullptr;
  std::vector<std::string> runArguments;
};

}  // namespace morvane
