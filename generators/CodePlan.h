#pragma once

#include <cstddef>
#include <vector>

namespace morvane {

struct Machine;

/// What of a machine the code has to deal with, so that nothing is written that nobody calls. It
/// refers to the machine, which has to outlive it.
class CodePlan {
 public:
  /// What tries to handle an event of a state: transitions in the order in which they are tried,
  /// for each list of events that have the same.
  struct Reaction {
    std::vector<int> events;
    std::vector<int> transitions;
  };

  explicit CodePlan(const Machine& machine);

  /// It is of use: it can be tried, or it is followed where a transition ends.
  bool IsTaken(int transition) const;
  /// Some transition enters the state.
  bool IsEntered(int state) const { return entered[Index(state)]; }
  /// Some transition leaves the state.
  bool IsLeft(int state) const { return left[Index(state)]; }
  /// Some transition ends at the border of the composite.
  bool IsLanded(int state) const { return landed[Index(state)]; }
  /// A transition from a composite around it may leave the state, whichever was active.
  bool IsLeftByLoop(int state) const { return leftByLoop[Index(state)]; }
  /// The machine keeps which child of the composite was left.
  bool Remembers(int state) const;
  /// The states that a transition from a simple state leaves, the innermost first.
  std::vector<int> Exits(int transition) const;
  /// The transition leaves whatever is active inside a composite.
  bool LeavesByLoop(int transition) const;
  /// The reactions of a state to events.
  std::vector<Reaction> Reactions(int state) const;
  /// The transitions that a state tries without an event: a simple one at rest, a composite once a
  /// final state inside it has been entered.
  std::vector<int> Eventless(int state) const;
  /// The state itself, or the innermost around it, that reacts to events; `kChart` if there is
  /// none.
  int Handler(int state) const;
  bool HasEventless() const { return hasEventless; }
  bool HasCompletion() const { return hasCompletion; }
  /// A final state whose composite has transitions without an event.
  bool Completes(int state) const;
  /// The machine ends there.
  bool IsEnd(int state) const;
  bool HasEnd() const;
  /// The last of the states inside, itself included; those between are all inside.
  int LastInside(int state) const;

 private:
  static std::size_t Index(int state) { return static_cast<std::size_t>(state); }
  void Note(int transition);
  void Land(int state);
  void NoteLoop(int transition);
  bool NoteMore();

  const Machine& machine;
  std::vector<bool> noted;  ///< transitions
  std::vector<bool> entered;
  std::vector<bool> left;
  std::vector<bool> landed;
  std::vector<bool> leftByLoop;
  std::vector<int> lastInside;
  bool hasEventless = false;
  bool hasCompletion = false;
};

}  // namespace morvane
