#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simulation/TraceLine.h"

namespace morvane {

struct Machine;
class RunHistory;

/// What of a machine the runs of it have reached. It refers to the machine, which has to outlive
/// it.
class Coverage {
 public:
  explicit Coverage(const Machine& machine);

  void Add(const TraceLine& line);
  /// The lines of a run up to a place.
  void Add(const RunHistory& history, std::size_t place);

  struct Share {
    std::size_t reached = 0;
    std::size_t all = 0;
    /// Rounded down; 100 of nothing.
    int Percent() const;
  };
  /// States that were entered.
  Share States() const { return ShareOf(states); }
  /// Transitions that were taken.
  Share Transitions() const { return ShareOf(transitions); }
  /// Events that a transition was taken for.
  Share Events() const { return ShareOf(events); }
  /// States and transitions together.
  Share Whole() const;

  std::vector<int> UnreachedStates() const { return Missing(states); }
  std::vector<int> UnreachedTransitions() const { return Missing(transitions); }
  std::vector<int> UnhandledEvents() const { return Missing(events); }

  /// Lines for a reader: what was reached in figures, and what was not by name and place.
  std::string Report(const std::string& file) const;

 private:
  static Share ShareOf(const std::vector<bool>& marks);
  static std::vector<int> Missing(const std::vector<bool>& marks);

  const Machine& machine;
  std::vector<bool> states;
  std::vector<bool> transitions;
  std::vector<bool> events;
  std::vector<bool> sent;
  int pending = -1;  ///< the event of the step at hand, until it is handled or ignored
};

}  // namespace morvane
