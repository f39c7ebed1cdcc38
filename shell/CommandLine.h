#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "shell/Arguments.h"
#include "surface/LayoutMgr.h"

namespace morvane {

/// What the program was started for: a window, or a job that needs none.
class CommandLine {
 public:
  static constexpr int kSuccess = 0;
  static constexpr int kFailure = 1;
  static constexpr int kWrongUse = 2;

  /// Does a job with what stands behind its name, and gives the exit status. If a value is none
  /// that an option can have, the arguments complain.
  using Handler = int (*)(Arguments& arguments, std::ostream& out, std::ostream& err);

  /// Reads the arguments behind the program's name.
  static CommandLine Parse(const std::vector<std::string>& given);

  /// True for all that is done with no display and no window.
  bool IsJob() const { return job != nullptr; }
  /// The chart to open in a window; empty for a new one.
  std::string File() const;
  /// The window opens beside those of a program that runs already.
  bool IsNewInstance() const;

  /// Does the job: success prints nothing but what was asked for, a failure says why on `err` and
  /// writes no output. Gives the exit status.
  int Run(std::ostream& out, std::ostream& err) const;

  /// Reads a chart as the window would; the reason of a failure, empty on success.
  static std::string LoadChart(const std::string& path, LayoutMgr& chart, LayoutMgr::Size size);
  /// Writes a file, or to `out` for "-". Gives the exit status, after the reason of a failure on
  /// `err`.
  static int WriteOutput(const std::string& path, const std::string& bytes, std::ostream& out,
                         std::ostream& err);

 private:
  Handler job = nullptr;
  Arguments arguments;
};

}  // namespace morvane
