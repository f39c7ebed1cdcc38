#pragma once

#include <set>
#include <string>
#include <vector>

#include "exchange/EventNames.h"
#include "exchange/ImportedChart.h"
#include "exchange/ScxmlDocument.h"

namespace morvane {

class ScxmlStates;

/// The transitions of a document as those of a chart, which have one target each, and where one
/// without a guard is the last to be tried.
class ScxmlTransitions {
 public:
  /// All have to outlive it.
  ScxmlTransitions(const ScxmlDocument& document, ScxmlStates& states, ImportedChart& chart);

  /// Adds the transitions to the chart.
  void Add();

 private:
  /// What triggers a transition.
  struct Trigger {
    std::vector<std::string> events;
    bool completes = false;  ///< also when its composite is complete
  };

  void AddOne(const ScxmlTransition& transition);
  void Make(const ScxmlTransition& transition, int target, const std::vector<std::string>& events);
  int TargetOf(const ScxmlTransition& transition);
  Trigger TriggerOf(const ScxmlTransition& transition);
  void DropTaken(const ScxmlTransition& transition, Trigger& trigger);
  bool KeepsTraceIds() const;
  void Refuse(const ScxmlTransition& transition, const std::string& why);

  const ScxmlDocument& document;
  ScxmlStates& states;
  ImportedChart& chart;
  EventNames names;
  bool withTraceIds = false;
  /// By source: the events that an earlier transition takes in any case; "" for none.
  std::vector<std::set<std::string>> taken;
};

}  // namespace morvane
