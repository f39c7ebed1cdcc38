#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

struct Machine;
struct MachineText;
struct MachineTransition;

/// Runs a machine as the generated code does. What the texts of the chart mean is the business of
/// its `Actor`. It refers to the machine and to the actor, which have to outlive it.
class Interpreter {
 public:
  /// Hears of each step and gives the texts a meaning.
  class Actor {
   public:
    virtual ~Actor() = default;
    /// Whether the guard of a transition holds; it has one.
    virtual bool Holds(const MachineTransition& transition) = 0;
    /// An entry, exit or effect is due.
    virtual void Act(const MachineText& code) = 0;
    /// A line of the trace: "event X", "exit S", "take ID", "enter S" or "ignored X".
    virtual void Trace(std::string_view kind, std::string_view name) = 0;
    /// The chart does not come to rest without an event from outside: the step ends there.
    virtual void NoRest() {}
  };

  /// Where a machine is. A copy of it is a way back.
  struct Position {
    int state = -1;  ///< the innermost active one; `kChart` before the start
    /// For each composite the child that was left last, or `kChart`.
    std::vector<int> remembered;
    std::deque<int> waiting;  ///< events
  };

  /// As many transitions are taken without an event before a step is cut short.
  static constexpr int kMostRounds = 1000;
  /// As many events that its own texts send are handled one behind the other.
  static constexpr int kMostOwnEvents = 1000;

  /// `queueSize` events that its own texts send can wait.
  Interpreter(const Machine& machine, Actor& actor, std::size_t queueSize = 8);

  /// Enters the initial state, with all that was before forgotten. Nothing from within a text.
  void Start();
  /// Handles an event. From within a text it waits until the step at hand is done. False if it is
  /// refused: the machine doesn't run, or no more events can wait.
  bool Dispatch(int event);
  bool IsFinished() const;
  /// The state is active, or one inside it.
  bool IsIn(int state) const;

  const Position& Where() const { return position; }
  /// Goes to where the machine was before.
  void Return(Position earlier) { position = std::move(earlier); }

 private:
  void Step(int event);
  void FinishStep();
  bool TakeFirst(int state, int event);
  void Settle();
  void Take(int transition);
  void LeaveTo(int scope);
  void Begin(int transition);
  void Enter(int state);
  void Land();
  void Run(const MachineText& code);

  const Machine& machine;
  Actor& actor;
  std::size_t queueSize;
  Position position;
  bool busy = false;
  bool completed = false;  ///< a final state inside a composite has just been entered
};

}  // namespace morvane
