#pragma once

#include <cstdint>
#include <vector>

#include "machine/Machine.h"

namespace morvane {

struct DrawnMessage;
struct DrawnState;
struct DrawnTransition;

/// A machine in the making: its names are open, and what it was drawn as is at hand.
struct Structure {
  Machine machine;
  std::vector<const DrawnState*> drawnStates;            ///< of each state
  std::vector<const DrawnTransition*> drawnTransitions;  ///< of each transition
  std::vector<const DrawnMessage*> namedBy;              ///< the first message of each event
};

}  // namespace morvane
