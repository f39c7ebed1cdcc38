#pragma once

#include <vector>

#include "states/State.h"

namespace morvane {

class StateTransition;

/// A state at which transitions can start.
class StartableState : public virtual State {
 public:
  StartableState() = default;
  /// Lets go of the transitions: they stay where they are, with a free source end.
  ~StartableState() override;

  /// Appends; the transition's pointer is set by the caller before.
  virtual void AddTransition(StateTransition* transition);
  /// Takes the transition out and clears its `source`; nothing if it isn't in the list.
  virtual void RemoveTransition(StateTransition* transition);
  /// Lets the transitions follow, but after a mere move for those that move along.
  void UpdateOutgoing(bool sized);
  const std::vector<StateTransition*>& GetOutgoing() const { return outgoing; }
  /// Takes along the routes from here to what moves too.
  void AddCompanions(GroupMove& move) override;

 protected:
  std::vector<StateTransition*> outgoing;
};

}  // namespace morvane
