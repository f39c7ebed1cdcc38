#include "machine/Names.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <unordered_set>
#include <vector>

#include "machine/DrawnChart.h"
#include "machine/Identifier.h"
#include "machine/ProblemList.h"
#include "machine/Structure.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = MachineState::Kind;

/// A damaged file may have negative ids, whose sign no name can hold.
std::uint32_t NumberOf(std::int32_t id) { return static_cast<std::uint32_t>(id); }

/// The names that are given away.
class TakenNames {
 public:
  /// False if the name is given away already.
  bool Take(const std::string& name) {
    std::string folded = name;
    for (char& c : folded) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return taken.insert(folded).second;
  }

  /// The name itself, or one with a number behind it.
  std::string TakeNext(const std::string& name, std::uint64_t number) {
    std::string next = name + '_' + std::to_string(number);
    while (!Take(next)) next = name + '_' + std::to_string(++number);
    return next;
  }

 private:
  std::unordered_set<std::string> taken;
};

class StateNames {
 public:
  explicit StateNames(Structure& structure) : structure(structure) {}

  void Give(ProblemList& problems) {
    // A sound title stays, whoever else would like to have it.
    const std::vector<int> order = OuterFirst();
    for (const int at : order) KeepTitle(at);
    for (const int at : order) GiveOther(at, problems);
    for (const int at : order) NameFinal(at);
  }

 private:
  MachineState& StateAt(int at) { return structure.machine.states[at]; }

  std::vector<int> OuterFirst() {
    std::vector<int> order(structure.machine.states.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {},
                      [this](int at) { return std::pair(StateAt(at).depth, StateAt(at).id); });
    return order;
  }

  void KeepTitle(int at) {
    MachineState& state = StateAt(at);
    if (state.kind == Kind::Final || !Identifier::IsSound(state.title)) return;
    if (names.Take(state.title)) state.name = state.title;
  }

  void GiveOther(int at, ProblemList& problems) {
    MachineState& state = StateAt(at);
    if (state.kind == Kind::Final || !state.name.empty()) return;
    std::string name = Identifier::Clean(state.title, 'S');
    if (name.empty()) name = "State" + std::to_string(NumberOf(state.id));
    state.name = Free(name, state);
    problems.Warning(*structure.drawnStates[at], Said("is named %1 in code", {state.name}));
    if (Identifier::IsSound(state.title)) problems.SetRemedy(Problem::Remedy::MakeNameUnique);
  }

  std::string Free(const std::string& name, const MachineState& state) {
    if (names.Take(name)) return name;
    if (state.parent < 0) return names.TakeNext(name, NumberOf(state.id));
    const std::string inside = StateAt(state.parent).name + '_' + name;
    return names.Take(inside) ? inside : names.TakeNext(inside, NumberOf(state.id));
  }

  void NameFinal(int at) {
    MachineState& state = StateAt(at);
    if (state.kind != Kind::Final) return;
    const std::string name = (state.parent < 0 ? "" : StateAt(state.parent).name) + "Final";
    state.name = names.Take(name) ? name : names.TakeNext(name, NumberOf(state.id));
  }

  Structure& structure;
  TakenNames names;
};

void GiveEventNames(Structure& structure, ProblemList& problems) {
  TakenNames names;
  std::vector<MachineEvent>& events = structure.machine.events;
  for (MachineEvent& event : events) {
    if (Identifier::IsSound(event.written) && names.Take(event.written)) event.name = event.written;
  }
  for (std::size_t i = 0; i < events.size(); ++i) {
    MachineEvent& event = events[i];
    if (!event.name.empty()) continue;
    const DrawnMessage& message = *structure.namedBy[i];
    std::string name = Identifier::Clean(event.written, 'E');
    if (name.empty()) name = "Event" + std::to_string(NumberOf(message.id));
    constexpr int second = 2;
    event.name = names.Take(name) ? name : names.TakeNext(name, second);
    problems.Warning(message,
                     Said("has the event \"%1\", named %2 in code", {event.written, event.name}),
                     message.event.line);
  }
}

}  // namespace

void Names::Give(Structure& structure, ProblemList& problems) {
  StateNames(structure).Give(problems);
  GiveEventNames(structure, problems);
}

}  // namespace morvane
