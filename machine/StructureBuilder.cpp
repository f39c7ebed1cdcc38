#include "machine/StructureBuilder.h"

#include <algorithm>
#include <map>
#include <string>

#include "machine/DrawnChart.h"
#include "machine/ProblemList.h"
#include "machine/StateTree.h"
#include "machine/TextCheck.h"
#include "machine/TransitionBuilder.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr int kNone = MachineState::kNone;
constexpr int kChart = MachineState::kChart;

/// In the place of an event: the transition has none.
constexpr int kNoEvent = -1;

/// Those with a guard by id, and then those without one.
void SortOutgoing(Machine& machine) {
  for (MachineState& state : machine.states) {
    std::stable_partition(state.outgoing.begin(), state.outgoing.end(), [&machine](int transition) {
      return !machine.transitions[transition].guard.IsEmpty();
    });
  }
}

/// Reports the unguarded transitions of a state that nothing keeps apart.
void CheckRivals(const Structure& structure, const MachineState& state, const DrawnState& drawn,
                 ProblemList& problems) {
  const Machine& machine = structure.machine;
  std::map<int, int> firsts;  // by event
  for (const int at : state.outgoing) {
    const MachineTransition& transition = machine.transitions[at];
    if (!transition.guard.IsEmpty()) continue;
    std::vector<int> events = transition.events;
    if (events.empty()) events.push_back(kNoEvent);
    for (const int event : events) {
      const auto [first, isNew] = firsts.emplace(event, at);
      if (isNew || first->second == at) continue;
      const std::string rival = structure.drawnTransitions[first->second]->Name();
      problems.Error(
          *structure.drawnTransitions[at],
          event == kNoEvent
              ? Said("leaves %1 on no event without a guard, like %2", {drawn.Name(), rival})
              : Said("leaves %1 on the event \"%2\" without a guard, like %3",
                     {drawn.Name(), machine.events[event].written, rival}));
      break;
    }
  }
}

/// Why a machine can come to rest on the border of each composite and needs to know where to go on.
class Landings {
 public:
  explicit Landings(const Structure& structure) : structure(structure) {
    const Machine& machine = structure.machine;
    firstInto.assign(machine.states.size(), kNone);
    for (int i = 0; i < std::ssize(machine.transitions); ++i) {
      int& first = firstInto[machine.transitions[i].target];
      if (first == kNone) first = i;
    }
  }

  /// What is wrong with one that doesn't know where to go on; empty if nothing leads to its border.
  std::string Complaint(int at) const {
    const MachineState& state = structure.machine.states[at];
    if (firstInto[at] != kNone) {
      return Said("has no InitialState inside, but %1 ends at it",
                  {structure.drawnTransitions[firstInto[at]]->Name()});
    }
    if (state.history) return Said("has no InitialState inside, but it keeps a history");
    if (state.parent == kChart || !structure.machine.states[state.parent].history) return {};
    return Said("has no InitialState inside, but the history of %1 leads to it",
                {structure.drawnStates[state.parent]->Name()});
  }

 private:
  const Structure& structure;
  std::vector<int> firstInto;  ///< the first transition that ends at each state
};

void CheckInitials(const Structure& structure, const StateTree& tree, ProblemList& problems) {
  if (tree.MarkIn(kChart) == nullptr) {
    problems.Error(Said("The chart has no InitialState"));
    problems.SetRemedy(Problem::Remedy::AddInitialState);
  }
  const Landings landings(structure);
  for (int i = 0; i < std::ssize(structure.machine.states); ++i) {
    const bool isComposite = structure.machine.states[i].kind == MachineState::Kind::Composite;
    if (!isComposite || tree.MarkIn(i) != nullptr) continue;
    const std::string complaint = landings.Complaint(i);
    if (complaint.empty()) continue;
    problems.Error(*structure.drawnStates[i], complaint);
    problems.SetRemedy(Problem::Remedy::AddInitialState);
  }
}

}  // namespace

Structure StructureBuilder::Build(const DrawnChart& chart, const ChartIndex& index,
                                  const std::vector<int>& parents, ProblemList& problems) {
  Structure structure;
  const StateTree tree(chart, parents, structure, problems);
  for (const DrawnState& drawn : chart.states) {
    CheckText(drawn, drawn.entry, Translate("entry text"), problems);
    CheckText(drawn, drawn.exit, Translate("exit text"), problems);
  }
  TransitionBuilder(chart, index, tree, structure, problems).Build();
  Machine& machine = structure.machine;
  SortOutgoing(machine);
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    CheckRivals(structure, machine.states[i], *structure.drawnStates[i], problems);
  }
  CheckInitials(structure, tree, problems);
  machine.properties = chart.properties;
  machine.propertyLines = chart.propertyLines;
  return structure;
}

}  // namespace morvane
