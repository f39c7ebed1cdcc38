#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "drawing/Geometry.h"
#include "review/ChartDiff.h"

namespace morvane {

/// Finds what moved together with the state that it stands in, so that the state alone needs to
/// tell of it.
class MovedGroups {
 public:
  /// An object of both versions.
  struct Pair {
    static constexpr std::size_t kUnchanged = static_cast<std::size_t>(-1);
    RECT box;                         ///< of the former version, model units
    std::size_t change = kUnchanged;  ///< its place in the changes
  };

  /// The changes have to outlive it.
  MovedGroups(std::vector<Pair> pairs, std::vector<ObjectChange>& changes);

  /// Notes in the changes what moves along. Gives by how much all moved, if all did and there are
  /// several.
  std::optional<POINT> Find();

 private:
  std::optional<POINT> ShiftOf(const Pair& pair) const;
  std::optional<POINT> FindWhole() const;
  void GatherHeld(ObjectChange& holder);

  std::vector<Pair> pairs;  ///< from left to right
  std::vector<ObjectChange>& changes;
};

}  // namespace morvane
