#include "generators/ClassPlan.h"

#include <algorithm>

#include "machine/Machine.h"

namespace morvane {

namespace {

constexpr int kNone = MachineState::kNone;
constexpr std::size_t kLongestList = 8;  // of states to leave; more of them are left by a loop

bool IsFinal(const MachineState& state) { return state.kind == MachineState::Kind::Final; }

/// Behind a transition without a guard nothing is tried any more.
void Append(const Machine& machine, std::vector<int>& row, int transition) {
  if (!row.empty() && machine.transitions[row.back()].guard.IsEmpty()) return;
  row.push_back(transition);
}

std::vector<ClassPlan::Row> RowsOf(const Machine& machine, const MachineState& state,
                                   std::vector<int>& rowOfEvent) {
  std::vector<ClassPlan::Row> rows;
  for (const int each : state.outgoing) {
    for (const int event : machine.transitions[each].events) {
      if (rowOfEvent[event] == kNone) {
        rowOfEvent[event] = static_cast<int>(rows.size());
        rows.push_back({{event}, {}});
      }
      Append(machine, rows[rowOfEvent[event]].transitions, each);
    }
  }
  for (const ClassPlan::Row& row : rows) rowOfEvent[row.events[0]] = kNone;
  // Neighbours that do the same go together.
  std::vector<ClassPlan::Row> joined;
  for (ClassPlan::Row& row : rows) {
    if (!joined.empty() && joined.back().transitions == row.transitions) {
      joined.back().events.push_back(row.events[0]);
    } else {
      joined.push_back(std::move(row));
    }
  }
  return joined;
}

}  // namespace

ClassPlan::ClassPlan(const Machine& machine, bool debug) {
  PlanRows(machine);
  PlanLanding(machine);
  PlanLeaving(machine, debug);
  PlanExits(machine);
}

void ClassPlan::PlanRows(const Machine& machine) {
  std::vector<int> rowOfEvent(machine.events.size(), kNone);
  for (const MachineState& state : machine.states) {
    rows.push_back(RowsOf(machine, state, rowOfEvent));
    std::vector<int>& tried = eventless.emplace_back();
    for (const int each : state.outgoing) {
      if (machine.transitions[each].events.empty()) Append(machine, tried, each);
    }
    // The outer ones come first.
    const int outer = state.parent == MachineState::kChart ? kNone : reactor[state.parent];
    reactor.push_back(rows.back().empty() ? outer : static_cast<int>(rows.size()) - 1);
    hasReactions |= !rows.back().empty();
    isNested |= state.parent != MachineState::kChart;
    const auto isFinal = [&machine](int child) { return IsFinal(machine.states[child]); };
    completes.push_back(!tried.empty() && std::ranges::any_of(state.children, isFinal));
    anyCompletes |= completes.back();
    settles |= completes.back() || (!tried.empty() && state.kind == MachineState::Kind::Simple);
  }
}

void ClassPlan::PlanLanding(const Machine& machine) {
  landed.resize(machine.states.size());
  std::vector<int> next;
  const auto land = [&](int state) {
    if (machine.states[state].children.empty() || landed[state]) return;
    landed[state] = true;
    next.push_back(state);
  };
  for (const MachineTransition& each : machine.transitions) {
    if (!each.isInitial || each.source == MachineState::kChart) land(each.target);
  }
  while (!next.empty()) {
    const MachineState& state = machine.states[next.back()];
    next.pop_back();
    if (state.initial != kNone) land(machine.transitions[state.initial].target);
    if (state.history) std::ranges::for_each(state.children, land);
  }
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    keepsHistory.push_back(landed[i] && machine.states[i].history);
  }
}

void ClassPlan::PlanLeaving(const Machine& machine, bool debug) {
  leavesAny.resize(machine.states.size(), debug);
  for (std::size_t i = machine.states.size(); i-- > 0;) {
    const MachineState& state = machine.states[i];
    const bool inHistory = state.parent != MachineState::kChart && keepsHistory[state.parent];
    if (!state.exit.IsEmpty() || inHistory) leavesAny[i] = true;
    if (state.parent != MachineState::kChart && leavesAny[i]) leavesAny[state.parent] = true;
  }
}

void ClassPlan::PlanExits(const Machine& machine) {
  for (const MachineTransition& each : machine.transitions) {
    std::vector<int> left;
    if (!each.isInitial) {
      for (int state = each.source; state != each.scope && state != MachineState::kChart;
           state = machine.states[state].parent) {
        left.push_back(state);
      }
    }
    const bool isOpen = !left.empty() && !machine.states[left[0]].children.empty();
    usesLoop.push_back((isOpen || left.size() > kLongestList) && leavesAny[left.back()]);
    usesLeaveUpTo |= usesLoop.back();
    leftFrom.push_back(isOpen ? std::vector<int>() : std::move(left));
  }
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    const MachineState& state = machine.states[i];
    const bool inHistory = state.parent != MachineState::kChart && keepsHistory[state.parent];
    usesLeaveState |= usesLeaveUpTo && (!state.exit.IsEmpty() || inHistory);
  }
}

}  // namespace morvane
