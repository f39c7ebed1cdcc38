#pragma once

#include <vector>

#include "machine/Structure.h"

namespace morvane {

class ProblemList;
struct DrawnChart;

/// The states of a chart with what they stand in, and its initial marks.
class StateTree {
 public:
  /// Fills the states of the structure. `parents` is what `Nesting` found. Chart and structure have
  /// to outlive it.
  StateTree(const DrawnChart& chart, const std::vector<int>& parents, Structure& structure,
            ProblemList& problems);

  /// The state that was drawn so.
  int StateOf(const DrawnState& drawn) const { return stateOf[IndexOf(drawn)]; }
  /// The composite, or the chart, whose beginning the mark is.
  int LevelOf(const DrawnState& mark) const { return LevelAt(IndexOf(mark)); }
  /// The mark of a composite or of the chart; null if it has none.
  const DrawnState* MarkIn(int level) const { return marks[Slot(level)]; }
  /// The state stands in `outer`, at any depth; everything stands in the chart.
  bool Holds(int outer, int state) const;

 private:
  std::size_t IndexOf(const DrawnState& drawn) const;
  static int Slot(int level) { return level + 1; }
  int LevelAt(std::size_t drawn) const;
  void AddStates();
  int Add(const DrawnState& drawn, int parent);
  void NoteEnds();
  void TakeMarks(ProblemList& problems);

  const DrawnChart& chart;
  const std::vector<int>& parents;
  Structure& structure;
  std::vector<int> stateOf;              ///< by the index in the chart
  std::vector<int> lastInside;           ///< for each state the last one that it holds, or itself
  std::vector<const DrawnState*> marks;  ///< the chart's first
};

}  // namespace morvane
