#pragma once

#include <vector>

#include "states/State.h"

namespace morvane {

class StateTransition;

/// A state at which transitions can end.
class EndableState : public virtual State {
 public:
  EndableState() = default;
  /// Lets go of the transitions: they stay where they are, with a free target end.
  ~EndableState() override;

  /// Appends; the transition's pointer is set by the caller before.
  virtual void AddTransition(StateTransition* transition);
  /// Takes the transition out and clears its `target`; nothing if it isn't in the list.
  virtual void RemoveTransition(StateTransition* transition);
  /// Lets the transitions follow, but after a mere move for those that move along.
  void UpdateIncoming(bool sized);
  const std::vector<StateTransition*>& GetIncoming() const { return incoming; }

 protected:
  std::vector<StateTransition*> incoming;
};

}  // namespace morvane
