#pragma once

#include <cstdint>
#include <vector>

#include "machine/MachineState.h"
#include "machine/MachineText.h"

namespace morvane {

/// An arrow of a machine, with what its message says.
struct MachineTransition {
  std::int32_t id = 0;         ///< of the object
  int line = 0;                ///< of the model file where its record begins
  std::int32_t messageId = 0;  ///< of the message; 0 if it has none
  bool isInitial = false;      ///< it leaves an initial mark: neither event nor guard
  /// The state that it leaves. For an initial transition the composite, or the chart, whose mark it
  /// leaves.
  int source = MachineState::kChart;
  int target = 0;
  /// What triggers it. Empty: no event. A simple state's transition is then tried whenever the
  /// machine comes to rest, a composite's when a final state directly inside has been entered.
  std::vector<int> events;
  MachineText guard;  ///< a condition; empty: always
  MachineText effect;
  /// The innermost composite, or the chart, that is neither left nor entered.
  int scope = MachineState::kChart;
  /// The states that it enters from inside `scope` to `target`, the outermost first.
  std::vector<int> entered;
};

}  // namespace morvane
