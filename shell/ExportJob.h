#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/PictureOptions.h"
#include "shell/Arguments.h"
#include "surface/Picture.h"

namespace morvane {

class LayoutMgr;

/// Draws a chart into a file, with no window.
class ExportJob {
 public:
  /// What the job takes besides its file and its output.
  static std::span<const Arguments::Option> Options();

  /// Reads the options; what is wrong with one is refused there.
  explicit ExportJob(Arguments& arguments);

  /// Draws `file` to `output`, or to `out` for "-". Gives the exit status, after the reason of a
  /// failure on `err`.
  int Run(const std::string& output, const std::string& file, std::ostream& out,
          std::ostream& err) const;

 private:
  bool Select(LayoutMgr& chart) const;

  PictureOptions options;
  std::optional<double> mostPixels;  ///< of the longer side
  std::string state;                 ///< the only one to draw, with what is in it
  std::string kind;                  ///< ".png", if it is not told by the output's name
};

}  // namespace morvane
