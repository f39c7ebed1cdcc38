#pragma once

#include <vector>

#include "machine/MachineEvent.h"
#include "machine/MachineState.h"
#include "machine/MachineTransition.h"
#include "model/ModelProperties.h"

namespace morvane {

/// What a chart means. It has one active state, or none, that holds no others.
///
/// A transition leaves the active states up to its scope, the innermost first, runs its effect, and
/// enters `entered`, the outermost first. If its target is a composite, it goes on there: to the
/// child that was left last, if the composite keeps a history and was left before, otherwise by the
/// initial transition, whose effect runs behind the composite's entry.
///
/// On an event the active state is asked first, then what it stands in; the first transition in the
/// order of `outgoing` whose guard holds is taken. Then transitions without an event are tried.
struct Machine {
  std::vector<MachineState> states;            ///< outer before inner, neighbours by id
  std::vector<MachineTransition> transitions;  ///< by id
  std::vector<MachineEvent> events;            ///< in the order in which transitions name them
  std::vector<int> outermost;                  ///< states, by id
  int initial = MachineState::kNone;           ///< transition from the chart's initial mark
  ModelProperties properties;
  /// The line of the model file where each text of `properties` begins that code takes over.
  struct PropertyLines {
    int cppIncludes = 0;
    int cppDeclarations = 0;
    int cIncludes = 0;
    int cDeclarations = 0;
    int javaDeclarations = 0;
    int csharpDeclarations = 0;
  } propertyLines;
};

}  // namespace morvane
