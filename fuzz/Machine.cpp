#include <algorithm>
#include <set>

#include "fuzz/FuzzTarget.h"
#include "fuzz/Mutation.h"
#include "machine/MachineBuilder.h"

namespace morvane {

// A chart file as a generator reads it: there are errors, or a machine whose parts refer to each
// other as its users may rely on.

namespace {

using Kind = MachineState::Kind;

template <class List>
bool IsIn(int at, const List& list) {
  return at >= 0 && at < std::ssize(list);
}

void CheckState(const Machine& machine, int at) {
  const MachineState& state = machine.states[at];
  Require(state.parent < at && state.parent >= MachineState::kChart, "an inner state comes first");
  Require(state.depth == (state.parent < 0 ? 0 : machine.states[state.parent].depth + 1), "depth");
  Require(state.children.empty() == (state.kind != Kind::Composite), "kind");
  Require(!state.history || state.kind == Kind::Composite, "a simple state keeps a history");
  for (const int child : state.children) {
    Require(IsIn(child, machine.states) && machine.states[child].parent == at, "a child");
  }
  Require(std::ranges::is_sorted(state.children, {}, [&](int i) { return machine.states[i].id; }),
          "children are out of order");
  bool isUnguarded = false;
  for (const int i : state.outgoing) {
    Require(IsIn(i, machine.transitions) && machine.transitions[i].source == at, "outgoing");
    const bool isLast = machine.transitions[i].guard.IsEmpty();
    Require(isLast || !isUnguarded, "a guard is behind an unguarded transition");
    isUnguarded = isLast;
  }
  if (state.initial == MachineState::kNone) return;
  Require(IsIn(state.initial, machine.transitions), "an initial transition");
  Require(machine.transitions[state.initial].source == at, "the initial transition of another");
}

void CheckTransition(const Machine& machine, const MachineTransition& transition) {
  Require(IsIn(transition.target, machine.states), "a target");
  Require(transition.isInitial || IsIn(transition.source, machine.states), "a source");
  Require(!transition.isInitial || (transition.events.empty() && transition.guard.IsEmpty()),
          "an initial transition waits");
  Require(!transition.isInitial || transition.scope == transition.source, "an initial scope");
  for (const int event : transition.events) Require(IsIn(event, machine.events), "an event");
  Require(!transition.entered.empty() && transition.entered.back() == transition.target,
          "the target is not entered");
  int outer = transition.scope;
  for (const int state : transition.entered) {
    Require(IsIn(state, machine.states) && machine.states[state].parent == outer, "a way");
    outer = state;
  }
  int around = transition.source;
  if (!transition.isInitial) around = machine.states[around].parent;
  while (around != transition.scope && around >= 0) around = machine.states[around].parent;
  Require(around == transition.scope, "the scope is not around the source");
}

template <class List>
void CheckNames(const List& list) {
  std::set<std::string> names;
  for (const auto& named : list) {
    Require(!named.name.empty() && names.insert(named.name).second, "a name is given twice");
    for (const char c : named.name) {
      const bool isPlain =
          (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
      Require(isPlain, "a name is no identifier");
    }
    Require(named.name.front() > '9' && named.name.front() != '_', "a name begins badly");
  }
}

void Check(const std::string& text) {
  const BuiltMachine built = MachineBuilder::FromText(text);
  Require(built.machine.has_value() != HasErrors(built.problems), "neither machine nor errors");
  const int lines = static_cast<int>(std::ranges::count(text, '\n')) + 1;
  for (const Problem& problem : built.problems) {
    Require(!problem.message.empty() && problem.message.find('\n') == std::string::npos, "a text");
    Require(problem.line >= 0 && problem.line <= lines, "a problem has no place");
  }
  if (!built.machine) return;
  const Machine& machine = *built.machine;
  Require(IsIn(machine.initial, machine.transitions), "no beginning");
  for (int i = 0; i < std::ssize(machine.states); ++i) CheckState(machine, i);
  for (const MachineTransition& transition : machine.transitions) {
    CheckTransition(machine, transition);
  }
  CheckNames(machine.states);
  CheckNames(machine.events);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckWithDamages(TextOf(data, size), Check);
  return 0;
}

}  // namespace morvane
