#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// How one model text differs from another, counted in objects.
struct ChartDifference {
  int added = 0;
  int changed = 0;
  int removed = 0;
  bool other = false;  ///< what stands outside of the objects differs

  /// From `before` to `after`, both with LF between the lines.
  static ChartDifference Between(std::string_view before, std::string_view after);
  bool IsNone() const { return added == 0 && changed == 0 && removed == 0 && !other; }
  /// For the user, as "Objects: 3 added, 1 changed"; empty for none.
  std::string Text() const;
};

}  // namespace morvane
