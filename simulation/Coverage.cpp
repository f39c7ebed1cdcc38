#include "simulation/Coverage.h"

#include <algorithm>

#include "machine/Machine.h"
#include "simulation/RunHistory.h"

namespace morvane {

namespace {

using Kind = TraceLine::Kind;

constexpr int kNone = -1;

std::string Figures(const char* what, const Coverage::Share& share) {
  return std::string(what) + ' ' + std::to_string(share.reached) + " of " +
         std::to_string(share.all) + " (" + std::to_string(share.Percent()) + " %)";
}

std::string Place(const std::string& file, int line) {
  return file + ':' + std::to_string(line) + ": ";
}

}  // namespace

Coverage::Coverage(const Machine& machine)
    : machine(machine),
      states(machine.states.size()),
      transitions(machine.transitions.size()),
      events(machine.events.size()),
      sent(machine.events.size()) {}

void Coverage::Add(const TraceLine& line) {
  const auto of = static_cast<std::size_t>(line.of);
  switch (line.kind) {
    case Kind::Event:
      pending = line.of;
      sent[of] = true;
      break;
    case Kind::Ignored: pending = kNone; break;
    case Kind::Enter: states[of] = true; break;
    case Kind::Exit: break;
    case Kind::Take:
      transitions[of] = true;
      if (pending != kNone) events[static_cast<std::size_t>(pending)] = true;
      pending = kNone;
      break;
  }
}

void Coverage::Add(const RunHistory& history, std::size_t place) {
  pending = kNone;
  for (std::size_t at = 0; at < std::min(place, history.Size()); ++at) Add(history.Line(at));
}

int Coverage::Share::Percent() const {
  constexpr std::size_t whole = 100;
  return all == 0 ? static_cast<int>(whole) : static_cast<int>(reached * whole / all);
}

Coverage::Share Coverage::ShareOf(const std::vector<bool>& marks) {
  return {static_cast<std::size_t>(std::ranges::count(marks, true)), marks.size()};
}

Coverage::Share Coverage::Whole() const {
  const Share ofStates = States();
  const Share ofTransitions = Transitions();
  return {ofStates.reached + ofTransitions.reached, ofStates.all + ofTransitions.all};
}

std::vector<int> Coverage::Missing(const std::vector<bool>& marks) {
  std::vector<int> missing;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    if (!marks[i]) missing.push_back(static_cast<int>(i));
  }
  return missing;
}

std::string Coverage::Report(const std::string& file) const {
  std::string report = file + ": " + Figures("states", States()) + ", " +
                       Figures("transitions", Transitions()) + ", " + Figures("events", Events()) +
                       '\n';
  for (const int index : UnreachedStates()) {
    const MachineState& state = machine.states[static_cast<std::size_t>(index)];
    report += Place(file, state.line) + "state " + std::to_string(state.id) + " \"" + state.title +
              "\" was never entered\n";
  }
  for (const int index : UnreachedTransitions()) {
    const MachineTransition& each = machine.transitions[static_cast<std::size_t>(index)];
    report +=
        Place(file, each.line) + "transition " + std::to_string(each.id) + " was never taken\n";
  }
  for (const int index : UnhandledEvents()) {
    const auto at = static_cast<std::size_t>(index);
    report += file + ": event \"" + machine.events[at].written +
              (sent[at] ? "\" was never handled\n" : "\" was never sent\n");
  }
  return report;
}

}  // namespace morvane
