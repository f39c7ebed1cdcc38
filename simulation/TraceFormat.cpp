#include "simulation/TraceFormat.h"

#include <array>

#include "machine/Machine.h"

namespace morvane {

namespace {

using Kind = TraceLine::Kind;

constexpr std::array<std::string_view, 5> kWords{"event", "exit", "take", "enter", "ignored"};
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::optional<int> In(const std::unordered_map<std::string, int>& names, const std::string& name) {
  const auto found = names.find(name);
  return found != names.end() ? std::optional(found->second) : std::nullopt;
}

}  // namespace

TraceFormat::TraceFormat(const Machine& machine) : machine(machine) {
  for (int i = 0; i < std::ssize(machine.events); ++i) {
    const MachineEvent& event = machine.events[static_cast<std::size_t>(i)];
    events.emplace(event.name, i);
    writtenEvents.emplace(event.written, i);
  }
  for (int i = 0; i < std::ssize(machine.states); ++i) {
    const MachineState& state = machine.states[static_cast<std::size_t>(i)];
    states.emplace(state.name, i);
    titles.emplace(Trimmed(state.title), i);
  }
  for (int i = 0; i < std::ssize(machine.transitions); ++i) {
    transitions.emplace(std::to_string(machine.transitions[static_cast<std::size_t>(i)].id), i);
  }
}

std::string TraceFormat::Text(const TraceLine& line) const {
  std::string text(kWords[static_cast<std::size_t>(line.kind)]);
  text += ' ';
  const auto of = static_cast<std::size_t>(line.of);
  switch (line.kind) {
    case Kind::Event:
    case Kind::Ignored: return text + machine.events[of].name;
    case Kind::Take: return text + std::to_string(machine.transitions[of].id);
    case Kind::Exit:
    case Kind::Enter: return text + machine.states[of].name;
  }
  return text;
}

std::optional<TraceLine> TraceFormat::Parse(std::string_view text) const {
  const std::string_view line = Trimmed(text);
  const std::size_t end = line.find_first_of(kBlanks);
  if (end == std::string_view::npos) return std::nullopt;
  return Parse(line.substr(0, end), Trimmed(line.substr(end)));
}

std::optional<TraceLine> TraceFormat::Parse(std::string_view kind, std::string_view name) const {
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    if (kWords[i] != kind) continue;
    const auto found = static_cast<Kind>(i);
    const bool isEvent = found == Kind::Event || found == Kind::Ignored;
    const auto& names = isEvent ? events : found == Kind::Take ? transitions : states;
    const std::optional<int> of = In(names, std::string(name));
    return of ? std::optional(TraceLine{found, *of}) : std::nullopt;
  }
  return std::nullopt;
}

std::optional<int> TraceFormat::FindEvent(const std::string& name) const {
  const std::optional<int> byName = In(events, name);
  return byName ? byName : In(writtenEvents, name);
}

std::optional<int> TraceFormat::FindState(const std::string& name) const {
  const std::optional<int> byName = In(states, name);
  return byName ? byName : In(titles, name);
}

}  // namespace morvane
