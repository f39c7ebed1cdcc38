#include "generators/CActions.h"

#include "generators/CNames.h"
#include "generators/CodePlan.h"
#include "generators/CodeWriter.h"
#include "generators/Emitter.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

std::size_t Index(int of) { return static_cast<std::size_t>(of); }

}  // namespace

CActions::CActions(const Machine& machine, const CodePlan& plan, const CNames& names,
                   const EmitOptions& options, CodeWriter& out)
    : machine(machine), plan(plan), names(names), options(options), out(out) {}

void CActions::Begin(std::optional<int> state) {
  stored = state;
  present = state.value_or(MachineState::kChart);
}

void CActions::MoveTo(int state) { present = state; }

void CActions::Sync() {
  if (stored != present) out.Line("self->state = " + names.StateConstant(present) + ';');
  stored = present;
}

void CActions::Trace(std::string_view kind, std::string_view name) {
  if (!options.debug) return;
  out.Line(names.Macro() + "_TRACE(\"" + std::string(kind) + "\", \"" + std::string(name) + "\");");
}

void CActions::Leave(int state) {
  const MachineState& left = machine.states[Index(state)];
  MoveTo(state);
  if (!left.exit.IsEmpty()) Sync();
  Trace("exit", left.name);
  if (!left.exit.IsEmpty()) out.Line(names.Of("exit", state) + "(self);");
  if (left.parent != MachineState::kChart && plan.Remembers(left.parent)) {
    out.Line("self->" + names.Memory(left.parent) + " = " + names.StateConstant(state) + ';');
  }
  MoveTo(left.parent);
}

void CActions::LeaveTo(int scope) {
  out.Line("machine_leave_to(self, " + names.StateConstant(scope) + ");");
  stored = scope;
  MoveTo(scope);
}

void CActions::Act(int transition) {
  const MachineTransition& taken = machine.transitions[Index(transition)];
  if (!taken.effect.IsEmpty()) Sync();
  Trace("take", std::to_string(taken.id));
  if (!taken.effect.IsEmpty()) out.Line(names.OfTransition("effect", transition) + "(self);");
}

void CActions::Enter(int state) {
  const MachineState& entered = machine.states[Index(state)];
  MoveTo(state);
  if (!entered.entry.IsEmpty()) Sync();
  Trace("enter", entered.name);
  if (!entered.entry.IsEmpty()) out.Line(names.Of("entry", state) + "(self);");
}

void CActions::EnterAll(const std::vector<int>& states) {
  for (const int state : states) Enter(state);
}

void CActions::Land(int state) {
  Sync();
  if (machine.states[Index(state)].kind == MachineState::Kind::Composite) {
    out.Line(names.Of("land_in", state) + "(self);");
  } else if (plan.Completes(state)) {
    out.Line("self->completed = true;");
  }
}

}  // namespace morvane
