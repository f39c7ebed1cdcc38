#include "generators/CodePlan.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "machine/Machine.h"

namespace morvane {

namespace {

using Kind = MachineState::Kind;

}  // namespace

CodePlan::CodePlan(const Machine& machine)
    : machine(machine),
      noted(machine.transitions.size()),
      entered(machine.states.size()),
      left(machine.states.size()),
      landed(machine.states.size()),
      leftByLoop(machine.states.size()),
      lastInside(machine.states.size()) {
  for (std::size_t i = machine.states.size(); i-- > 0;) {
    lastInside[i] = std::max(lastInside[i], static_cast<int>(i));
    const int parent = machine.states[i].parent;
    if (parent != MachineState::kChart) {
      lastInside[Index(parent)] = std::max(lastInside[Index(parent)], lastInside[i]);
    }
  }
  // A final state that is entered lets its composite take more transitions.
  while (NoteMore()) {
  }
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    if (Eventless(static_cast<int>(i)).empty()) continue;
    (machine.states[i].kind == Kind::Simple ? hasEventless : hasCompletion) = true;
  }
}

bool CodePlan::NoteMore() {
  bool more = false;
  for (int i = 0; i < static_cast<int>(machine.transitions.size()); ++i) {
    if (noted[Index(i)] || !IsTaken(i)) continue;
    Note(i);
    more = true;
  }
  return more;
}

bool CodePlan::IsTaken(int transition) const {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  if (transition == machine.initial) return true;
  if (taken.isInitial) return taken.source != MachineState::kChart && IsLanded(taken.source);
  return !taken.events.empty() || !Eventless(taken.source).empty();
}

void CodePlan::Note(int transition) {
  noted[Index(transition)] = true;
  const MachineTransition& taken = machine.transitions[Index(transition)];
  for (const int state : taken.entered) entered[Index(state)] = true;
  Land(taken.target);
  if (taken.isInitial) return;
  if (LeavesByLoop(transition)) {
    NoteLoop(transition);
  } else {
    for (const int state : Exits(transition)) left[Index(state)] = true;
  }
}

void CodePlan::Land(int state) {
  const MachineState& composite = machine.states[Index(state)];
  if (composite.kind != Kind::Composite || landed[Index(state)]) return;
  landed[Index(state)] = true;
  if (composite.initial != MachineState::kNone) Note(composite.initial);
  if (!composite.history) return;
  for (const int child : composite.children) {
    entered[Index(child)] = true;
    Land(child);
  }
}

void CodePlan::NoteLoop(int transition) {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  const auto note = [this](int state) {
    left[Index(state)] = true;
    leftByLoop[Index(state)] = true;
  };
  // Once noted, all that is inside is, too.
  if (!leftByLoop[Index(taken.source)] || !leftByLoop[Index(lastInside[Index(taken.source)])]) {
    for (int state = taken.source; state <= lastInside[Index(taken.source)]; ++state) note(state);
  }
  for (int state = taken.source; state != taken.scope;
       state = machine.states[Index(state)].parent) {
    note(state);
  }
}

bool CodePlan::Remembers(int state) const {
  return machine.states[Index(state)].history && IsLanded(state);
}

std::vector<int> CodePlan::Exits(int transition) const {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  std::vector<int> exits;
  for (int state = taken.source; state != taken.scope;
       state = machine.states[Index(state)].parent) {
    exits.push_back(state);
  }
  return exits;
}

bool CodePlan::LeavesByLoop(int transition) const {
  const int source = machine.transitions[Index(transition)].source;
  return machine.states[Index(source)].kind == Kind::Composite;
}

std::vector<CodePlan::Reaction> CodePlan::Reactions(int state) const {
  // The events in the order in which the transitions name them
  std::vector<Reaction> reactions;
  std::vector<std::pair<int, std::vector<int>>> byEvent;
  std::unordered_map<int, std::size_t> places;
  for (const int transition : machine.states[Index(state)].outgoing) {
    for (const int event : machine.transitions[Index(transition)].events) {
      const auto [place, isNew] = places.emplace(event, byEvent.size());
      if (isNew) byEvent.emplace_back(event, std::vector<int>());
      byEvent[place->second].second.push_back(transition);
    }
  }
  for (auto& [event, transitions] : byEvent) {
    if (!reactions.empty() && reactions.back().transitions == transitions) {
      reactions.back().events.push_back(event);
    } else {
      reactions.push_back({{event}, std::move(transitions)});
    }
  }
  return reactions;
}

std::vector<int> CodePlan::Eventless(int state) const {
  const MachineState& source = machine.states[Index(state)];
  if (source.kind == Kind::Composite && std::ranges::none_of(source.children, [this](int child) {
        return machine.states[Index(child)].kind == Kind::Final && IsEntered(child);
      })) {
    return {};
  }
  std::vector<int> eventless;
  std::ranges::copy_if(source.outgoing, std::back_inserter(eventless), [this](int transition) {
    return machine.transitions[Index(transition)].events.empty();
  });
  return eventless;
}

int CodePlan::Handler(int state) const {
  const auto reacts = [this](int candidate) {
    return std::ranges::any_of(machine.states[Index(candidate)].outgoing, [this](int transition) {
      return !machine.transitions[Index(transition)].events.empty();
    });
  };
  while (state != MachineState::kChart && !reacts(state)) {
    state = machine.states[Index(state)].parent;
  }
  return state;
}

bool CodePlan::Completes(int state) const {
  const MachineState& mark = machine.states[Index(state)];
  return mark.kind == Kind::Final && IsEntered(state) && mark.parent != MachineState::kChart &&
         !Eventless(mark.parent).empty();
}

bool CodePlan::IsEnd(int state) const {
  const MachineState& mark = machine.states[Index(state)];
  return mark.kind == Kind::Final && mark.parent == MachineState::kChart;
}

bool CodePlan::HasEnd() const {
  return std::ranges::any_of(machine.outermost, [this](int state) { return IsEnd(state); });
}

int CodePlan::LastInside(int state) const { return lastInside[Index(state)]; }

}  // namespace morvane
