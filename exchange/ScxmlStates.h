#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/ImportedChart.h"
#include "exchange/ScxmlDocument.h"

namespace morvane {

/// The states of a document as those of a chart: what ids name, where composites begin, and which
/// of them keep a history.
class ScxmlStates {
 public:
  static constexpr int kNone = -1;

  /// Adds the states and the initial transitions to the chart. Both have to outlive it.
  ScxmlStates(const ScxmlDocument& document, ImportedChart& chart);

  /// The state of the chart that a transition leads to; `kNone`, with a remark, if there is none.
  int TargetOf(const ScxmlTransition& transition);
  /// The state of the chart that a state of the document is; `kNone` for what is none.
  int PlaceOf(int state) const { return places[state]; }
  /// The transition is the beginning of the chart, and no transition of a state.
  bool IsBeginning(const ScxmlTransition& transition) const {
    return firstState != kNone && transition.source == firstState;
  }
  bool IsComposite(int state) const { return !document.states[state].children.empty(); }
  void Remark(int line, std::string text, std::string kept = {});

 private:
  struct Beginning {
    int target = kNone;  ///< a state of the document
    std::string effect;
    int traceId = 0;
  };

  void NameStates();
  void FindFirst();
  bool IsTarget(const std::string& id) const;
  void AddStates();
  void FindBeginnings();
  Beginning BeginningOf(int level);
  int Wanted(const std::vector<std::string>& ids, int line, int level);
  void FindHistories();
  void TakeHistory(int history, const std::vector<bool>& entered,
                   const std::vector<bool>& recalled);
  bool IsInside(int state, int outer) const;
  void AddInitials();
  int Find(const std::string& id) const;

  const ScxmlDocument& document;
  ImportedChart& chart;
  std::unordered_map<std::string_view, int> byId;
  std::vector<int> places;
  int firstState = kNone;  ///< a state that is nothing but the beginning of the chart
  Beginning ofChart;
  std::vector<Beginning> beginnings;  ///< by state
};

}  // namespace morvane
