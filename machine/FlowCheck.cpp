#include "machine/FlowCheck.h"

#include <algorithm>
#include <vector>

#include "machine/DrawnChart.h"
#include "machine/ProblemList.h"
#include "machine/Structure.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// Follows every transition from the start on, whatever its guard and events.
class Reach {
 public:
  explicit Reach(const Machine& machine)
      : machine(machine), entered(machine.states.size()), landed(machine.states.size()) {
    waiting.push_back(machine.initial);
    while (!waiting.empty()) {
      const int next = waiting.back();
      waiting.pop_back();
      Take(machine.transitions[next]);
    }
  }

  bool IsEntered(int state) const { return entered[state]; }

 private:
  void Take(const MachineTransition& transition) {
    for (const int state : transition.entered) Enter(state);
    Land(transition.target);
  }

  void Enter(int at) {
    if (entered[at]) return;
    entered[at] = true;
    const MachineState& state = machine.states[at];
    waiting.insert(waiting.end(), state.outgoing.begin(), state.outgoing.end());
    if (state.parent < 0) return;
    const bool isResumed = machine.states[state.parent].history && landed[state.parent];
    if (isResumed) Land(at);
  }

  /// A history leads to children that were entered before, and on from there.
  void Land(int at) {
    std::vector<int> border{at};
    while (!border.empty()) {
      const int next = border.back();
      border.pop_back();
      if (landed[next]) continue;
      landed[next] = true;
      const MachineState& state = machine.states[next];
      if (state.initial != MachineState::kNone) waiting.push_back(state.initial);
      if (!state.history) continue;
      std::ranges::copy_if(state.children, std::back_inserter(border),
                           [this](int child) { return entered[child]; });
    }
  }

  const Machine& machine;
  std::vector<bool> entered;
  std::vector<bool> landed;  ///< a way ends there
  std::vector<int> waiting;  ///< transitions
};

/// A state that goes on at once never waits for an event.
void WarnOfLateEvents(const Structure& structure, const MachineState& state,
                      ProblemList& problems) {
  const auto& transitions = structure.machine.transitions;
  const auto always = std::ranges::find_if(state.outgoing, [&](int at) {
    return transitions[at].events.empty() && transitions[at].guard.IsEmpty();
  });
  if (always == state.outgoing.end()) return;
  for (const int at : state.outgoing) {
    if (transitions[at].events.empty()) continue;
    problems.Warning(*structure.drawnTransitions[at],
                     Said("is never taken, since %1 always leaves the state at once",
                          {structure.drawnTransitions[*always]->Name()}));
  }
}

void WarnOfCompletion(const Structure& structure, const MachineState& state,
                      const DrawnState& drawn, ProblemList& problems) {
  const Machine& machine = structure.machine;
  const bool ends = std::ranges::any_of(state.children, [&machine](int child) {
    return machine.states[child].kind == MachineState::Kind::Final;
  });
  if (ends) return;
  for (const int at : state.outgoing) {
    if (!machine.transitions[at].events.empty()) continue;
    problems.Warning(
        *structure.drawnTransitions[at],
        Said("is never taken, since it has no event and %1 no FinalState directly inside",
             {drawn.Name()}));
  }
}

}  // namespace

void FlowCheck::Warn(const Structure& structure, ProblemList& problems) {
  const Machine& machine = structure.machine;
  const Reach reach(machine);
  for (int i = 0; i < std::ssize(machine.states); ++i) {
    const MachineState& state = machine.states[i];
    const DrawnState& drawn = *structure.drawnStates[i];
    if (!reach.IsEntered(i)) {
      const bool parentIs = state.parent < 0 || reach.IsEntered(state.parent);
      if (parentIs) problems.Warning(drawn, Said("is never entered"));
    } else if (state.kind == MachineState::Kind::Simple) {
      WarnOfLateEvents(structure, state, problems);
    } else if (state.kind == MachineState::Kind::Composite) {
      WarnOfCompletion(structure, state, drawn, problems);
    }
  }
}

}  // namespace morvane
