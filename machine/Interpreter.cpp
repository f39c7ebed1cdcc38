#include "machine/Interpreter.h"

#include <algorithm>
#include <utility>

#include "machine/Machine.h"

namespace morvane {

namespace {

using Kind = MachineState::Kind;

constexpr int kChart = MachineState::kChart;
constexpr int kNoEvent = -1;

std::size_t Index(int of) { return static_cast<std::size_t>(of); }

bool IsTriedOn(const MachineTransition& transition, int event) {
  if (event == kNoEvent) return transition.events.empty();
  return std::ranges::find(transition.events, event) != transition.events.end();
}

}  // namespace

Interpreter::Interpreter(const Machine& machine, Actor& actor, std::size_t queueSize)
    : machine(machine), actor(actor), queueSize(queueSize) {
  position.remembered.assign(machine.states.size(), kChart);
}

void Interpreter::Run(const MachineText& code) {
  if (!code.IsEmpty()) actor.Act(code);
}

void Interpreter::Start() {
  if (busy) return;
  busy = true;
  completed = false;
  position = {};
  position.remembered.assign(machine.states.size(), kChart);
  if (machine.initial != MachineState::kNone) {
    Begin(machine.initial);
    Settle();
  }
  FinishStep();
}

bool Interpreter::Dispatch(int event) {
  if (busy) {
    if (position.waiting.size() >= queueSize) return false;
    position.waiting.push_back(event);
    return true;
  }
  if (position.state == kChart || IsFinished()) {
    const std::string& name = machine.events[Index(event)].name;
    actor.Trace("event", name);
    actor.Trace("ignored", name);
    return false;
  }
  busy = true;
  Step(event);
  FinishStep();
  return true;
}

/// Handles what the texts have sent.
void Interpreter::FinishStep() {
  for (int handled = 0; !position.waiting.empty() && !IsFinished(); ++handled) {
    if (handled == kMostOwnEvents) {
      actor.NoRest();
      break;
    }
    const int event = position.waiting.front();
    position.waiting.pop_front();
    Step(event);
  }
  position.waiting.clear();
  busy = false;
}

void Interpreter::Step(int event) {
  const std::string& name = machine.events[Index(event)].name;
  actor.Trace("event", name);
  int state = position.state;
  while (state != kChart && !TakeFirst(state, event)) state = machine.states[Index(state)].parent;
  if (state == kChart) actor.Trace("ignored", name);
  Settle();
}

/// Takes the first of a state's transitions whose guard holds; false if there is none.
bool Interpreter::TakeFirst(int state, int event) {
  for (const int transition : machine.states[Index(state)].outgoing) {
    const MachineTransition& tried = machine.transitions[Index(transition)];
    if (!IsTriedOn(tried, event)) continue;
    if (!tried.guard.IsEmpty() && !actor.Holds(tried)) continue;
    Take(transition);
    return true;
  }
  return false;
}

void Interpreter::Settle() {
  for (int round = 0; round < kMostRounds; ++round) {
    if (position.state == kChart || IsFinished()) return;
    const MachineState& active = machine.states[Index(position.state)];
    bool taken = false;
    if (std::exchange(completed, false)) {
      taken = TakeFirst(active.parent, kNoEvent);
    } else if (active.kind == Kind::Simple) {
      taken = TakeFirst(position.state, kNoEvent);
    }
    if (!taken) return;
  }
  actor.NoRest();
}

void Interpreter::Take(int transition) {
  LeaveTo(machine.transitions[Index(transition)].scope);
  Begin(transition);
}

void Interpreter::LeaveTo(int scope) {
  while (position.state != scope) {
    const int state = position.state;
    const MachineState& left = machine.states[Index(state)];
    actor.Trace("exit", left.name);
    Run(left.exit);
    if (left.parent != kChart) position.remembered[Index(left.parent)] = state;
    position.state = left.parent;
  }
}

/// The effect of a transition and the way from its scope on.
void Interpreter::Begin(int transition) {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  actor.Trace("take", std::to_string(taken.id));
  Run(taken.effect);
  for (const int state : taken.entered) Enter(state);
  Land();
}

void Interpreter::Enter(int state) {
  position.state = state;
  const MachineState& entered = machine.states[Index(state)];
  actor.Trace("enter", entered.name);
  Run(entered.entry);
}

/// From the border of a composite to where the machine rests.
void Interpreter::Land() {
  for (;;) {
    const MachineState& reached = machine.states[Index(position.state)];
    if (reached.kind != Kind::Composite) {
      completed = reached.kind == Kind::Final && reached.parent != kChart;
      return;
    }
    const int last = position.remembered[Index(position.state)];
    if (reached.history && last != kChart) {
      Enter(last);
      continue;
    }
    if (reached.initial != MachineState::kNone) Begin(reached.initial);
    return;
  }
}

bool Interpreter::IsFinished() const {
  if (position.state == kChart) return false;
  const MachineState& active = machine.states[Index(position.state)];
  return active.kind == Kind::Final && active.parent == kChart;
}

bool Interpreter::IsIn(int state) const {
  for (int at = position.state; at != kChart; at = machine.states[Index(at)].parent) {
    if (at == state) return true;
  }
  return false;
}

}  // namespace morvane
