#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What a message has for its event: a list of names with commas between them.
struct EventList {
  std::vector<std::string> names;  ///< in UTF-8, without blanks around them; some may be empty
  bool isUntouched = false;        ///< what the editor of messages offers, as it stands

  /// Nothing but blanks is an empty list.
  static EventList Parse(std::string_view written);
};

}  // namespace morvane
