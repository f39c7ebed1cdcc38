#pragma once

#include <iosfwd>
#include <string>

namespace morvane {

class ChartDiff;

/// What two versions of a chart don't share, as text for a reader: first what the chart does and
/// says, then where its objects stand and how they look. Nothing for the same charts.
class DiffReport {
 public:
  static void Write(const ChartDiff& diff, const std::string& before, const std::string& after,
                    std::ostream& out);
};

}  // namespace morvane
