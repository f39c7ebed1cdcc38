#include "simulation/Run.h"

#include <algorithm>

#include "machine/Machine.h"

namespace morvane {

using Kind = TraceLine::Kind;

std::string Run::NoteOf(std::size_t line) const {
  const auto note = notes.find(line);
  return note != notes.end() ? note->second : std::string();
}

void Run::GoTo(std::size_t to) { place = std::min(to, history.Size()); }

void Run::Continue() {
  while (place < history.Size()) {
    ++place;
    if (StopsBehind(place - 1) || IsNotable(place)) return;
  }
}

bool Run::StopsBehind(std::size_t line) const {
  const TraceLine what = history.Line(line);
  const auto of = static_cast<std::size_t>(what.of);
  if (what.kind == Kind::Enter) return breakpoints.contains(machine.states[of].id);
  return what.kind == Kind::Take && breakpoints.contains(machine.transitions[of].id);
}

void Run::ToggleBreakpoint(std::int32_t id) {
  if (breakpoints.erase(id) == 0) breakpoints.insert(id);
}

/// Of the line that was added last.
void Run::AddNote(const std::string& note) {
  if (note.empty() || history.Size() == 0) return;
  std::string& all = notes[history.Size() - 1];
  all += (all.empty() ? "" : "; ") + note;
}

void Run::CutTo(std::size_t lines) {
  history.CutTo(lines);
  notes.erase(notes.lower_bound(lines), notes.end());
  place = std::min(place, lines);
}

}  // namespace morvane
