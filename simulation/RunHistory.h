#pragma once

#include <cstddef>
#include <vector>

#include "machine/MachineState.h"
#include "simulation/TraceLine.h"

namespace morvane {

struct Machine;

/// What a machine has done, line by line, with where it was behind each. A place in it is the
/// number of lines that lie before. It refers to the machine, which has to outlive it.
class RunHistory {
 public:
  explicit RunHistory(const Machine& machine) : machine(machine) {}

  std::size_t Size() const { return moments.size(); }
  TraceLine Line(std::size_t at) const { return {moments[at].kind, moments[at].of}; }
  void Add(const TraceLine& line);
  /// Forgets all lines from a place on.
  void CutTo(std::size_t place);

  /// The innermost active state at a place; `kChart` for none.
  int ActiveAt(std::size_t place) const;
  /// The transition that was taken last before a place, in the step at hand; `kNone` for none.
  int TakenAt(std::size_t place) const;
  /// The states that are active at a place, the innermost first.
  std::vector<int> ActiveStatesAt(std::size_t place) const;

 private:
  struct Moment {
    int of = 0;
    int active = MachineState::kChart;
    TraceLine::Kind kind = TraceLine::Kind::Event;
  };

  const Machine& machine;
  std::vector<Moment> moments;
};

}  // namespace morvane
