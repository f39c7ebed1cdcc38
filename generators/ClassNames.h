#pragma once

#include <string>
#include <vector>

#include "machine/Problem.h"

namespace morvane {

struct ClassFacts;
struct Machine;

/// What the parts of a generated class are called. None is a word of the language, no two meet, and
/// none of the private ones is mentioned by the user's texts.
struct ClassNames {
  /// `problems` gets a warning for each name of the model's properties that had to change.
  ClassNames(const Machine& machine, const ClassFacts& facts, std::vector<Problem>& problems);

  std::string className;
  std::vector<std::string> package;  ///< from the outside in
  std::string macro;                 ///< the class, as macros begin that belong to it

  std::string start, dispatch, currentState, isIn, isFinished, stateName;

  std::vector<std::string> states;
  std::vector<std::string> events;
  std::string noState;

  // Operations of a state
  std::vector<std::string> enter;
  std::vector<std::string> leave;
  std::vector<std::string> react;
  std::vector<std::string> settle;
  std::vector<std::string> resume;
  // Operations of a transition
  std::vector<std::string> take;
  std::vector<std::string> guard;
  std::vector<std::string> effect;

  std::string handle, reactTo, settleAll, takeWithoutEvent, handleWaiting, enqueue, leaveUpTo,
      leaveState, parentOf, eventName, trace;

  // Fields
  std::vector<std::string> history;  ///< for each state
  std::string activeState, inStep, completionPending, queue, queueHead, queueLength, slots,
      mostTaken;

  // Parameters and local variables
  std::string event, state, scope, taken, next;
};

}  // namespace morvane
