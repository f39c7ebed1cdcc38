#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace morvane {

using Lines = std::vector<std::string>;

/// What became of some lines: those that are gone behind "- ", those that are new behind "+ ".
inline Lines LineDiff(const Lines& before, const Lines& after) {
  // The length of the longest common part from each pair of places on.
  std::vector<std::vector<int>> common(before.size() + 1, std::vector<int>(after.size() + 1));
  for (std::size_t i = before.size(); i-- > 0;) {
    for (std::size_t j = after.size(); j-- > 0;) {
      common[i][j] = before[i] == after[j] ? common[i + 1][j + 1] + 1
                                           : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  Lines changes;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < before.size() || j < after.size()) {
    if (i < before.size() && j < after.size() && before[i] == after[j]) {
      ++i;
      ++j;
    } else if (j == after.size() || (i < before.size() && common[i + 1][j] >= common[i][j + 1])) {
      changes.push_back("- " + before[i++]);
    } else {
      changes.push_back("+ " + after[j++]);
    }
  }
  return changes;
}

}  // namespace morvane
