#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "simulation/RunHistory.h"
#include "simulation/TraceFormat.h"

namespace morvane {

struct Machine;

/// A run of a machine that can be looked at: its lines, and a place in them that goes forward and
/// back. It refers to the machine, which has to outlive it.
class Run {
 public:
  explicit Run(const Machine& machine) : machine(machine), history(machine), format(machine) {}
  virtual ~Run() = default;
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  const Machine& TheMachine() const { return machine; }
  const RunHistory& History() const { return history; }
  const TraceFormat& Format() const { return format; }
  std::string TextOf(std::size_t line) const { return format.Text(history.Line(line)); }
  /// What is to be told of a line, besides; mostly nothing.
  std::string NoteOf(std::size_t line) const;

  /// So many lines lie before the place that is shown.
  std::size_t Place() const { return place; }
  bool IsAtEnd() const { return place == history.Size(); }
  /// Goes to a place; beyond the end it is the end.
  void GoTo(std::size_t to);
  /// Goes on until the next breakpoint or whatever else is worth a stop, or to the end.
  void Continue();
  int Active() const { return history.ActiveAt(place); }
  int Taken() const { return history.TakenAt(place); }

  /// A run stops behind the line that enters such a state, or takes such a transition. Both are
  /// named by the ids of their objects.
  bool HasBreakpoint(std::int32_t id) const { return breakpoints.contains(id); }
  void ToggleBreakpoint(std::int32_t id);
  const std::set<std::int32_t>& Breakpoints() const { return breakpoints; }

 protected:
  void Add(const TraceLine& line) { history.Add(line); }
  void AddNote(const std::string& note);
  void CutTo(std::size_t lines);
  /// A place that is worth a stop, besides breakpoints.
  virtual bool IsNotable(std::size_t /*at*/) const { return false; }

 private:
  bool StopsBehind(std::size_t line) const;

  const Machine& machine;
  RunHistory history;
  TraceFormat format;
  std::map<std::size_t, std::string> notes;  ///< by line
  std::set<std::int32_t> breakpoints;
  std::size_t place = 0;
};

}  // namespace morvane
