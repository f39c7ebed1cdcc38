#pragma once

#include <string>
#include <vector>

#include "platform/Command.h"

namespace morvane {

/// Where menus, bars and keys send their commands, and where they ask what to show.
class CommandTarget {
 public:
  virtual ~CommandTarget() = default;
  virtual CommandState StateOf(unsigned id) = 0;
  /// Carries a command out unless it is disabled; gives true if it was.
  virtual bool RunCommand(unsigned id) = 0;
  /// The files of the recent file list, newest first.
  virtual const std::vector<std::string>& RecentPaths() const = 0;
};

}  // namespace morvane
