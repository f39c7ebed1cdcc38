#include "tests/generators/MachineSketch.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace morvane {

namespace {

constexpr int kChart = MachineState::kChart;

int ParentOf(const Machine& machine, int state) {
  return state == kChart ? kChart : machine.states[state].parent;
}

bool Contains(const Machine& machine, int outer, int inner) {
  if (outer == kChart) return true;
  for (int at = ParentOf(machine, inner); at != kChart; at = ParentOf(machine, at)) {
    if (at == outer) return true;
  }
  return false;
}

}  // namespace

MachineSketch& MachineSketch::State(const std::string& name, const std::string& parent,
                                    const std::string& entry, const std::string& exit) {
  MachineState state;
  state.id = static_cast<int>(machine.states.size()) + 1;
  state.title = state.name = name;
  state.parent = Find(parent);
  state.entry = {entry, state.id * 10};
  state.exit = {exit, state.id * 10 + 5};
  const int index = static_cast<int>(machine.states.size());
  if (state.parent == kChart) {
    machine.outermost.push_back(index);
  } else {
    MachineState& outer = machine.states[state.parent];
    outer.children.push_back(index);
    outer.kind = MachineState::Kind::Composite;
    state.depth = outer.depth + 1;
  }
  machine.states.push_back(std::move(state));
  return *this;
}

MachineSketch& MachineSketch::Final(const std::string& name, const std::string& parent,
                                    const std::string& entry) {
  State(name, parent, entry);
  machine.states.back().kind = MachineState::Kind::Final;
  return *this;
}

MachineSketch& MachineSketch::History(const std::string& name) {
  machine.states[Find(name)].history = true;
  return *this;
}

MachineSketch& MachineSketch::Initial(const std::string& source, const std::string& target,
                                      const std::string& effect) {
  const int from = Find(source);
  MachineTransition& transition = Add(from, target);
  transition.isInitial = true;
  transition.effect = {effect, transition.id};
  const int index = static_cast<int>(machine.transitions.size()) - 1;
  (from == kChart ? machine.initial : machine.states[from].initial) = index;
  return *this;
}

MachineSketch& MachineSketch::On(const std::string& source, const std::string& events,
                                 const std::string& target, const std::string& guard,
                                 const std::string& effect) {
  std::vector<int> named;
  std::istringstream words(events);
  for (std::string word; words >> word;) named.push_back(Event(word));
  MachineTransition& transition = Add(Find(source), target);
  transition.events = named;
  transition.guard = {guard, transition.id};
  transition.effect = {effect, transition.id};
  return *this;
}

Machine MachineSketch::Build() const {
  Machine built = machine;
  for (int i = 0; i < std::ssize(built.transitions); ++i) Connect(built, i);
  for (MachineState& state : built.states) {
    std::ranges::stable_partition(state.outgoing, [&built](int transition) {
      return !built.transitions[transition].guard.IsEmpty();
    });
  }
  return built;
}

void MachineSketch::Connect(Machine& built, int index) const {
  MachineTransition& transition = built.transitions[index];
  const int source = transition.source;
  transition.scope = transition.isInitial ? source : ParentOf(built, source);
  while (!Contains(built, transition.scope, transition.target)) {
    transition.scope = ParentOf(built, transition.scope);
  }
  for (int at = transition.target; at != transition.scope; at = ParentOf(built, at)) {
    transition.entered.insert(transition.entered.begin(), at);
  }
  if (!transition.isInitial) built.states[source].outgoing.push_back(index);
}

int MachineSketch::Find(const std::string& name) const {
  if (name.empty()) return kChart;
  const auto found = std::ranges::find(machine.states, name, &MachineState::name);
  if (found == machine.states.end()) throw std::invalid_argument("no state " + name);
  return static_cast<int>(found - machine.states.begin());
}

int MachineSketch::Event(const std::string& name) {
  const auto found = std::ranges::find(machine.events, name, &MachineEvent::name);
  const auto index = static_cast<int>(found - machine.events.begin());
  if (found == machine.events.end()) machine.events.push_back({name, name});
  return index;
}

MachineTransition& MachineSketch::Add(int source, const std::string& target) {
  MachineTransition& transition = machine.transitions.emplace_back();
  transition.id = 100 + static_cast<int>(machine.transitions.size());
  transition.source = source;
  transition.target = Find(target);
  return transition;
}

}  // namespace morvane
