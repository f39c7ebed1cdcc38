#pragma once

#include <string>
#include <vector>

namespace morvane {

class ChartDiff;
struct ObjectChange;

/// A row of a list of what has changed, in UTF-8 and the user's language.
struct DiffRow {
  /// A text that was replaced as a whole shows so many lines of it in a list.
  static constexpr std::size_t kMaxLines = 400;

  const ObjectChange* change = nullptr;  ///< null for the chart's properties, and for all of it
  std::string object;
  std::string summary;
  std::vector<std::string> lines;  ///< of changed texts and ends
};

/// The rows of a comparison, which has to outlive them: first what the chart does and says, then
/// where its objects stand and how they look.
std::vector<DiffRow> RowsOf(const ChartDiff& diff);

}  // namespace morvane
