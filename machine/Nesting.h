#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include <queue>

#include "drawing/Geometry.h"

namespace morvane {

class ProblemList;
struct DrawnState;

/// Finds in which state each state and mark stands: the smallest whose rectangle holds its own,
/// edges included. States that overlap in part, and marks on a border, are errors.
///
/// A line sweeps over the chart from left to right. What it crosses is open; the upper and lower
/// edges of the open states stand in a list from above, nested like brackets, so that the place of
/// a new one tells what it stands in and what it overlaps.
class Nesting {
 public:
  static constexpr int kOutermost = -1;

  /// Both have to outlive it.
  Nesting(const std::vector<DrawnState>& states, ProblemList& problems);

  /// For each state and mark the index of the state it stands in, or `kOutermost`. Goes once.
  std::vector<int> Parents();

 private:
  struct Edge {
    std::int32_t y = 0;
    bool isUpper = false;
    int order = 0;  ///< of neighbours at one height: the outer one opens first and closes last
    friend auto operator<=>(const Edge&, const Edge&) = default;
  };
  using OpenUntil = std::pair<std::int32_t, int>;  ///< the right side of a state or mark

  const RECT& RectOf(int at) const;
  bool IsMark(int at) const;
  std::vector<int> SweepOrder();
  void Close(std::int32_t x);
  void Place(int at, int order);
  void Open(int at, int order);
  void MeetMarks(int at);
  void Report(int at, int other);

  const std::vector<DrawnState>& states;
  ProblemList& problems;
  std::vector<int> parents;
  std::vector<int> orders;
  std::map<Edge, int> edges;                     ///< of the open states
  std::set<std::pair<std::int32_t, int>> marks;  ///< the open ones, by their upper edge
  std::int64_t tallestMark = 0;
  std::priority_queue<OpenUntil, std::vector<OpenUntil>, std::greater<>> open;
  std::vector<bool> isReported;
};

}  // namespace morvane
