#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// Which charts a session has open, in the order of their windows, as a text of one line each.
struct SessionRecord {
  std::vector<std::string> paths;
  std::string active;  ///< path of the chart whose window is in use; empty if it has none

  std::string ToText() const;
  /// Lines that say nothing are passed over.
  static SessionRecord Parse(std::string_view text);
  /// Adds the charts of another session that are not there yet.
  void Merge(const SessionRecord& other);
};

}  // namespace morvane
