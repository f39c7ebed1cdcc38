#pragma once

#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// Finds for each of many rectangles the smallest one that holds it, edges included, and is larger.
/// Those that overlap in part are nothing to each other.
///
/// What can hold others lies in a grid by its upper left corner. Each power of two has a grid of
/// its own for the rectangles of that size, so that one over a point has its corner in one of four
/// cells.
class Enclosures {
 public:
  static constexpr int kNone = -1;

  struct Box {
    RECT rect;
    bool canHold = false;
  };

  explicit Enclosures(std::vector<Box> boxes);

  /// For each box the index of the one that it stands in, or `kNone`.
  std::vector<int> Holders() const;

 private:
  using Cell = std::pair<std::int64_t, std::int64_t>;
  struct CellHash {
    std::size_t operator()(const Cell& cell) const {
      constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
      return static_cast<std::size_t>(static_cast<std::uint64_t>(cell.first) * odd ^
                                      static_cast<std::uint64_t>(cell.second));
    }
  };
  /// The boxes of a cell, the smallest first.
  using Grid = std::unordered_map<Cell, std::vector<int>, CellHash>;

  int HolderOf(int at) const;
  /// The smallest of a cell's boxes that holds another one and is smaller than `best`.
  int SmallestOf(const std::vector<int>& cell, int at, int best) const;

  std::vector<Box> boxes;
  std::map<int, Grid> grids;  ///< by the power of two
};

}  // namespace morvane
