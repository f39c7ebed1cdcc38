#include "simulation/RunHistory.h"

#include <algorithm>

#include "machine/Machine.h"

namespace morvane {

using Kind = TraceLine::Kind;

void RunHistory::Add(const TraceLine& line) {
  int active = ActiveAt(Size());
  if (line.kind == Kind::Enter) active = line.of;
  if (line.kind == Kind::Exit) active = machine.states[static_cast<std::size_t>(line.of)].parent;
  moments.push_back({line.of, active, line.kind});
}

void RunHistory::CutTo(std::size_t place) { moments.resize(std::min(place, moments.size())); }

int RunHistory::ActiveAt(std::size_t place) const {
  return place == 0 ? MachineState::kChart : moments[place - 1].active;
}

int RunHistory::TakenAt(std::size_t place) const {
  for (std::size_t at = place; at > 0; --at) {
    const Moment& moment = moments[at - 1];
    if (moment.kind == Kind::Take) return moment.of;
    if (moment.kind == Kind::Event || moment.kind == Kind::Ignored) break;
  }
  return MachineState::kNone;
}

std::vector<int> RunHistory::ActiveStatesAt(std::size_t place) const {
  std::vector<int> active;
  for (int state = ActiveAt(place); state != MachineState::kChart;
       state = machine.states[static_cast<std::size_t>(state)].parent) {
    active.push_back(state);
  }
  return active;
}

}  // namespace morvane
