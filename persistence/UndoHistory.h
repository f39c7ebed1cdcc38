#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The snapshots of a chart, each a whole model text, and which one the chart shows.
class UndoHistory {
 public:
  static constexpr std::size_t kMaxEntries = 21;

  /// Adds a snapshot behind the present one and drops what could have been redone. A text that
  /// equals the present one changes nothing.
  void Push(std::string text);
  bool CanUndo() const { return current > 0; }
  bool CanRedo() const { return current + 1 < entries.size(); }
  /// The snapshot before, or after, the present one, which becomes the present one. To be called
  /// on a history that holds something.
  std::string Undo();
  std::string Redo();

 private:
  std::vector<std::string> entries;
  std::size_t current = 0;
};
