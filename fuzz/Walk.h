#pragma once

#include <cstddef>
#include <string>

#include "fuzz/ByteSource.h"

namespace morvane {

/// A walk of a hand over a chart: gestures, commands, menus and dialogs in any order, edits by
/// double click and from the list of a search among them, each choice from the source. Then undo
/// and redo go through all that the history holds.
struct Walk {
  /// What is wrong with a step or with the chart; empty if every step showed again, byte for byte.
  std::string fault;
  std::size_t steps = 0;  ///< that the moves made

  static Walk Go(ByteSource& source);
};

}  // namespace morvane
