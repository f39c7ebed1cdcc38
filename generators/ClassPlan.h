#pragma once

#include <string>
#include <vector>

namespace morvane {

struct Machine;

/// What of a machine needs code, found out before any is written.
struct ClassPlan {
  /// Transitions that are tried in a row, on each of some events.
  struct Row {
    std::vector<int> events;
    std::vector<int> transitions;  ///< at most the last one without a guard
  };

  ClassPlan(const Machine& machine, bool debug);

  // For each state
  std::vector<std::vector<Row>> rows;
  std::vector<std::vector<int>> eventless;  ///< at most the last one without a guard
  std::vector<int> reactor;                 ///< itself or the next outer one that has rows, or none
  std::vector<bool> landed;                 ///< something ends on this composite
  std::vector<bool> keepsHistory;           ///< and it keeps a history for that
  std::vector<bool> completes;              ///< a composite that has transitions for its completion
  std::vector<bool> leavesAny;              ///< leaving it or one of those inside takes code
  // For each transition
  std::vector<bool> usesLoop;              ///< leaves states that aren't known before
  std::vector<std::vector<int>> leftFrom;  ///< otherwise: leaves these, the innermost first

  bool hasReactions = false;
  bool anyCompletes = false;
  bool settles = false;  ///< there are transitions without an event
  bool usesLeaveUpTo = false;
  bool usesLeaveState = false;
  bool isNested = false;

 private:
  void PlanRows(const Machine& machine);
  void PlanLanding(const Machine& machine);
  void PlanLeaving(const Machine& machine, bool debug);
  void PlanExits(const Machine& machine);
};

}  // namespace morvane
