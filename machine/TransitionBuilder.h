#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "machine/Structure.h"

namespace morvane {

class ChartIndex;
class ProblemList;
class StateTree;
struct DrawnChart;
struct MachineText;

/// Makes the transitions and events of a machine out of the arrows and messages of a chart.
class TransitionBuilder {
 public:
  /// All have to outlive it.
  TransitionBuilder(const DrawnChart& chart, const ChartIndex& index, const StateTree& tree,
                    Structure& structure, ProblemList& problems);
  void Build();

 private:
  void TakeMessages();
  bool CheckEnds(const DrawnTransition& drawn);
  void Add(const DrawnTransition& drawn);
  void AddInitial(const DrawnTransition& drawn, const DrawnState& mark, MachineTransition made);
  bool TakeTexts(const DrawnMessage& message, const DrawnState* mark, MachineTransition& made);
  void RefuseTrigger(const DrawnMessage& message, const DrawnState& mark);
  bool TakeEvents(const DrawnMessage& message, MachineTransition& made);
  int EventOf(const std::string& name, const DrawnMessage& message);
  void FindPath(MachineTransition& made) const;

  const DrawnChart& chart;
  const ChartIndex& index;
  const StateTree& tree;
  Structure& structure;
  ProblemList& problems;
  std::unordered_map<std::int32_t, const DrawnMessage*> messages;  ///< by the id of the transition
  std::unordered_map<std::string, int> events;                     ///< as written
  std::unordered_map<std::int32_t, const DrawnTransition*> fromMark;  ///< by the id of the mark
};

}  // namespace morvane
