#include "machine/StateTree.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "machine/DrawnChart.h"
#include "machine/ProblemList.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = DrawnObject::Kind;

}  // namespace

StateTree::StateTree(const DrawnChart& chart, const std::vector<int>& parents, Structure& structure,
                     ProblemList& problems)
    : chart(chart), parents(parents), structure(structure) {
  AddStates();
  NoteEnds();
  TakeMarks(problems);
}

std::size_t StateTree::IndexOf(const DrawnState& drawn) const {
  return static_cast<std::size_t>(&drawn - chart.states.data());
}

int StateTree::LevelAt(std::size_t drawn) const {
  const int parent = parents[drawn];
  return parent < 0 ? MachineState::kChart : stateOf[parent];
}

bool StateTree::Holds(int outer, int state) const {
  return outer == MachineState::kChart || (state > outer && state <= lastInside[outer]);
}

/// Each state is followed by what stands in it.
void StateTree::AddStates() {
  const std::size_t count = chart.states.size();
  std::vector<int> byId(count);
  std::iota(byId.begin(), byId.end(), 0);
  std::ranges::sort(byId, std::ranges::greater(), [this](int i) { return chart.states[i].id; });
  stateOf.assign(count, MachineState::kNone);
  std::vector<std::vector<int>> inside(count);
  std::vector<int> waiting;  // the next one at the back
  for (const int i : byId) {
    if (chart.states[i].kind == Kind::InitialMark) continue;
    (parents[i] < 0 ? waiting : inside[parents[i]]).push_back(i);
  }
  while (!waiting.empty()) {
    const int next = waiting.back();
    waiting.pop_back();
    stateOf[next] = Add(chart.states[next], LevelAt(next));
    waiting.insert(waiting.end(), inside[next].begin(), inside[next].end());
  }
}

int StateTree::Add(const DrawnState& drawn, int parent) {
  Machine& machine = structure.machine;
  const int added = static_cast<int>(machine.states.size());
  MachineState state;
  state.id = drawn.id;
  state.line = drawn.line;
  state.title = drawn.title;
  state.kind =
      drawn.kind == Kind::FinalMark ? MachineState::Kind::Final : MachineState::Kind::Simple;
  state.parent = parent;
  state.entry = drawn.entry;
  state.exit = drawn.exit;
  state.history = drawn.history;
  if (parent == MachineState::kChart) {
    machine.outermost.push_back(added);
  } else {
    MachineState& holder = machine.states[parent];
    state.depth = holder.depth + 1;
    holder.kind = MachineState::Kind::Composite;
    holder.children.push_back(added);
  }
  machine.states.push_back(std::move(state));
  structure.drawnStates.push_back(&drawn);
  return added;
}

void StateTree::NoteEnds() {
  std::vector<MachineState>& states = structure.machine.states;
  lastInside.resize(states.size());
  std::iota(lastInside.begin(), lastInside.end(), 0);
  for (int i = static_cast<int>(states.size()) - 1; i >= 0; --i) {
    MachineState& state = states[i];
    if (state.kind != MachineState::Kind::Composite) state.history = false;
    if (state.parent < 0) continue;
    lastInside[state.parent] = std::max(lastInside[state.parent], lastInside[i]);
  }
}

void StateTree::TakeMarks(ProblemList& problems) {
  marks.assign(structure.machine.states.size() + 1, nullptr);
  for (const DrawnState& drawn : chart.states) {
    if (drawn.kind != Kind::InitialMark) continue;
    const int level = LevelOf(drawn);
    const DrawnState*& mark = marks[Slot(level)];
    if (mark != nullptr) {
      problems.Error(drawn, level == MachineState::kChart
                                ? Said("is a second one in the chart beside %1", {mark->Name()})
                                : Said("is a second one in %1 beside %2",
                                       {structure.drawnStates[level]->Name(), mark->Name()}));
    } else {
      mark = &drawn;
    }
  }
}

}  // namespace morvane
