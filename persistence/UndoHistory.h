#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/SharedText.h"

namespace morvane {

/// The snapshots of a chart, each a whole model text, and which one the chart shows.
class UndoHistory {
 public:
  static constexpr std::size_t kMaxEntries = 21;

  /// Adds a snapshot behind the present one and drops what could have been redone. A text that
  /// equals the present one changes nothing.
  void Push(std::string text);
  /// Puts a text in the place of the present snapshot, for a change that is no step of its own;
  /// what can be redone stays. On an empty history it is the first snapshot.
  void Amend(std::string text);
  bool CanUndo() const { return current > 0; }
  bool CanRedo() const { return current + 1 < entries.size(); }
  /// The snapshot that the chart shows; null on an empty history.
  SharedText Current() const { return At(current); }
  /// The snapshot before, or after, the present one; null where there is none.
  SharedText Previous() const { return CanUndo() ? At(current - 1) : nullptr; }
  SharedText Next() const { return At(current + 1); }
  /// The snapshot before, or after, the present one becomes the present one, if there is one.
  void StepBack();
  void StepForward();

 private:
  SharedText At(std::size_t index) const;

  std::vector<SharedText> entries;
  std::size_t current = 0;
};

}  // namespace morvane
