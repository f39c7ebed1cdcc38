#include "generators/ClassBodies.h"

#include <map>

#include "generators/ClassFacts.h"
#include "generators/ClassNames.h"
#include "generators/ClassPlan.h"
#include "generators/ClassWriter.h"
#include "generators/Emitter.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

constexpr int kChart = MachineState::kChart;
constexpr int kNone = MachineState::kNone;

std::string Literal(const std::string& name) { return '"' + name + '"'; }
std::string Call(const std::string& name) { return name + "();"; }

}  // namespace

std::string ClassBodies::Constant(const char* type, const std::string& name) const {
  return type + std::string(facts.scope) + name;
}

std::string ClassBodies::State(int state) const {
  return state == kChart ? NoState() : Constant("State", names.states[state]);
}

std::string ClassBodies::NoState() const { return Constant("State", names.noState); }

void ClassBodies::Trace(ClassWriter& out, const char* kind, const std::string& expression) const {
  if (options.debug) out.Line(names.trace + "(\"" + kind + "\", " + expression + ");");
}

void ClassBodies::Labels(ClassWriter& out, const char* type,
                         const std::vector<std::string>& constants) const {
  for (const std::string& each : constants) {
    out.Line("case " + (facts.bareLabels ? each : Constant(type, each)) + ':');
  }
}

void ClassBodies::Default(ClassWriter& out, const std::string& statement) const {
  out.Line("default:");
  out.Indent();
  out.Line(statement);
  out.Outdent();
}

void ClassBodies::Step(ClassWriter& out, const Body& body) const {
  out.Line(names.inStep + " = true;");
  if (facts.hasFinally) out.Block("try");
  body(out);
  out.Line(Call(names.handleWaiting));
  if (facts.hasFinally) out.EndAndBlock("finally");
  out.Line(names.queueLength + " = 0;");
  out.Line(names.inStep + " = false;");
  if (facts.hasFinally) out.End();
}

void ClassBodies::Start(ClassWriter& out) const {
  out.Block("if (" + names.inStep + ')');
  out.Line("return;");
  out.End();
  out.Line(names.activeState + " = " + NoState() + ';');
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    if (plan.keepsHistory[state]) out.Line(names.history[state] + " = " + NoState() + ';');
  }
  if (plan.anyCompletes) out.Line(names.completionPending + " = false;");
  Step(out, [this](ClassWriter& inner) {
    if (machine.initial != kNone) inner.Line(Call(names.take[machine.initial]));
    if (plan.settles) inner.Line(Call(names.settleAll));
  });
}

void ClassBodies::Dispatch(ClassWriter& out) const {
  out.Block("if (" + names.inStep + ')');
  out.Line("return " + names.enqueue + '(' + names.event + ");");
  out.End();
  out.Block("if (" + names.activeState + " == " + NoState() + " || " + names.isFinished + "())");
  const std::string name = names.eventName + '(' + names.event + ')';
  Trace(out, "event", name);
  Trace(out, "ignored", name);
  out.Line("return false;");
  out.End();
  Step(out, [this](ClassWriter& inner) { inner.Line(names.handle + '(' + names.event + ");"); });
  out.Line("return true;");
}

void ClassBodies::IsFinished(ClassWriter& out) const {
  std::string condition;
  for (const int state : machine.outermost) {
    if (machine.states[state].kind != MachineState::Kind::Final) continue;
    if (!condition.empty()) condition += " || ";
    condition += names.activeState + " == " + State(state);
  }
  out.Line("return " + (condition.empty() ? "false" : condition) + ';');
}

void ClassBodies::IsIn(ClassWriter& out) const {
  if (!plan.isNested) {
    out.Line("return " + names.state + " == " + names.activeState + ';');
    return;
  }
  out.Block("for (State " + names.next + " = " + names.activeState + "; " + names.next + " != " +
            NoState() + "; " + names.next + " = " + names.parentOf + '(' + names.next + "))");
  out.Block("if (" + names.next + " == " + names.state + ')');
  out.Line("return true;");
  out.End();
  out.End();
  out.Line("return false;");
}

void ClassBodies::Handle(ClassWriter& out) const {
  const std::string name = names.eventName + '(' + names.event + ')';
  const std::string react = names.reactTo + '(' + names.event + ')';
  Trace(out, "event", name);
  if (options.debug && plan.hasReactions) {
    out.Block("if (!" + react + ')');
    Trace(out, "ignored", name);
    out.End();
  } else if (plan.hasReactions) {
    out.Line(react + ';');
  } else {
    Trace(out, "ignored", name);
  }
  if (plan.settles) out.Line(Call(names.settleAll));
}

void ClassBodies::HandleWaiting(ClassWriter& out) const {
  out.Block("while (" + names.queueLength + " > 0 && !" + names.isFinished + "())");
  out.Line(std::string(facts.fixed) + "Event " + names.next + " = " + names.queue + '[' +
           names.queueHead + "];");
  out.Line(names.queueHead + " = (" + names.queueHead + " + 1) % " + names.slots + ';');
  out.Line("--" + names.queueLength + ';');
  out.Line(names.handle + '(' + names.next + ");");
  out.End();
}

void ClassBodies::Enqueue(ClassWriter& out) const {
  out.Block("if (" + names.queueLength + " == " + std::string(facts.queueSize) + ')');
  out.Line("return false;");
  out.End();
  out.Line(names.queue + "[(" + names.queueHead + " + " + names.queueLength + ") % " + names.slots +
           "] = " + names.event + ';');
  out.Line("++" + names.queueLength + ';');
  out.Line("return true;");
}

void ClassBodies::ReactTo(ClassWriter& out) const {
  std::map<int, std::vector<std::string>> leaves;  // by what reacts in them
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    const bool isLeaf = machine.states[i].children.empty();
    if (isLeaf && plan.reactor[i] != kNone) leaves[plan.reactor[i]].push_back(names.states[i]);
  }
  out.Block("switch (" + names.activeState + ')');
  for (const auto& [reactor, constants] : leaves) {
    Labels(out, "State", constants);
    out.Indent();
    out.Line("return " + names.react[reactor] + '(' + names.event + ");");
    out.Outdent();
  }
  Default(out, "return false;");
  out.End();
}

void ClassBodies::React(ClassWriter& out, int state) const {
  out.Block("switch (" + names.event + ')');
  for (const ClassPlan::Row& row : plan.rows[state]) {
    std::vector<std::string> constants;
    for (const int event : row.events) constants.push_back(names.events[event]);
    Labels(out, "Event", constants);
    out.Indent();
    Row(out, row.transitions);
    if (!machine.transitions[row.transitions.back()].guard.IsEmpty()) out.Line("break;");
    out.Outdent();
  }
  Default(out, "break;");
  out.End();
  const int parent = machine.states[state].parent;
  const int outer = parent == kChart ? kNone : plan.reactor[parent];
  out.Line(outer == kNone ? "return false;"
                          : "return " + names.react[outer] + '(' + names.event + ");");
}

/// Takes the first transition whose guard holds and returns; what follows is reached if none does.
void ClassBodies::Row(ClassWriter& out, const std::vector<int>& transitions) const {
  for (const int each : transitions) {
    const bool isGuarded = !machine.transitions[each].guard.IsEmpty();
    if (isGuarded) out.Block("if (" + names.guard[each] + "())");
    out.Line(Call(names.take[each]));
    out.Line("return true;");
    if (isGuarded) out.End();
  }
}

void ClassBodies::SettleAll(ClassWriter& out) const {
  const std::string limit = names.taken + " < " + names.mostTaken;
  out.Line("int " + names.taken + " = 0;");
  out.Block("while (" + limit + " && " + names.takeWithoutEvent + "())");
  out.Line("++" + names.taken + ';');
  out.End();
  out.Line(std::string(facts.assertion[0]) + limit + std::string(facts.assertion[1]) +
           Literal("The machine does not settle") + std::string(facts.assertion[2]));
}

void ClassBodies::TakeWithoutEvent(ClassWriter& out) const {
  out.Block("switch (" + names.activeState + ')');
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    const MachineState& state = machine.states[i];
    const bool isSimple = state.kind == MachineState::Kind::Simple;
    if (isSimple && !plan.eventless[i].empty()) {
      Labels(out, "State", {names.states[i]});
      out.Indent();
      out.Line("return " + Call(names.settle[i]));
      out.Outdent();
    } else if (plan.completes[i]) {
      std::vector<std::string> finals;
      for (const int child : state.children) {
        const bool isFinal = machine.states[child].kind == MachineState::Kind::Final;
        if (isFinal) finals.push_back(names.states[child]);
      }
      Labels(out, "State", finals);
      out.Indent();
      out.Block("if (!" + names.completionPending + ')');
      out.Line("return false;");
      out.End();
      out.Line(names.completionPending + " = false;");
      out.Line("return " + Call(names.settle[i]));
      out.Outdent();
    }
  }
  Default(out, "return false;");
  out.End();
}

void ClassBodies::TryEventless(ClassWriter& out, int state) const {
  const std::vector<int>& tried = plan.eventless[state];
  Row(out, tried);
  if (!machine.transitions[tried.back()].guard.IsEmpty()) out.Line("return false;");
}

void ClassBodies::Take(ClassWriter& out, int transition) const {
  const MachineTransition& each = machine.transitions[transition];
  if (plan.usesLoop[transition]) {
    out.Line(names.leaveUpTo + '(' + State(each.scope) + ");");
  } else {
    for (const int state : plan.leftFrom[transition]) LeaveOne(out, state);
  }
  Trace(out, "take", Literal(std::to_string(each.id)));
  if (!each.effect.IsEmpty()) out.Line(Call(names.effect[transition]));
  for (const int state : each.entered) EnterState(out, state, state == each.target);
  Land(out, each.target);
}

void ClassBodies::LeaveOne(ClassWriter& out, int state) const {
  const MachineState& each = machine.states[state];
  Trace(out, "exit", Literal(each.name));
  if (!each.exit.IsEmpty()) out.Line(Call(names.leave[state]));
  if (each.parent != kChart && plan.keepsHistory[each.parent]) {
    out.Line(names.history[each.parent] + " = " + State(state) + ';');
  }
}

void ClassBodies::EnterState(ClassWriter& out, int state, bool isLast) const {
  const MachineState& each = machine.states[state];
  const bool hasText = !each.entry.IsEmpty();
  if (isLast || hasText) out.Line(names.activeState + " = " + State(state) + ';');
  Trace(out, "enter", Literal(each.name));
  if (hasText) out.Line(Call(names.enter[state]));
  const bool isFinal = each.kind == MachineState::Kind::Final;
  if (isFinal && each.parent != kChart && plan.completes[each.parent]) {
    out.Line(names.completionPending + " = true;");
  }
}

void ClassBodies::Land(ClassWriter& out, int state) const {
  const int initial = machine.states[state].initial;
  if (plan.keepsHistory[state]) {
    out.Line(Call(names.resume[state]));
  } else if (initial != kNone) {
    out.Line(Call(names.take[initial]));
  }
}

void ClassBodies::Resume(ClassWriter& out, int state) const {
  out.Block("switch (" + names.history[state] + ')');
  for (const int child : machine.states[state].children) {
    Labels(out, "State", {names.states[child]});
    out.Indent();
    EnterState(out, child, true);
    Land(out, child);
    out.Line("break;");
    out.Outdent();
  }
  const int initial = machine.states[state].initial;
  Default(out, initial == kNone ? "break;" : Call(names.take[initial]));
  if (initial != kNone) {
    out.Indent();
    out.Line("break;");
    out.Outdent();
  }
  out.End();
}

void ClassBodies::LeaveUpTo(ClassWriter& out) const {
  out.Block("for (State " + names.state + " = " + names.activeState + "; " + names.state + " != " +
            names.scope + "; " + names.state + " = " + names.parentOf + '(' + names.state + "))");
  Trace(out, "exit", names.stateName + '(' + names.state + ')');
  if (plan.usesLeaveState) out.Line(names.leaveState + '(' + names.state + ");");
  out.End();
}

void ClassBodies::LeaveState(ClassWriter& out) const {
  out.Block("switch (" + names.state + ')');
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    const MachineState& state = machine.states[i];
    const bool inHistory = state.parent != kChart && plan.keepsHistory[state.parent];
    if (state.exit.IsEmpty() && !inHistory) continue;
    Labels(out, "State", {names.states[i]});
    out.Indent();
    if (!state.exit.IsEmpty()) out.Line(Call(names.leave[i]));
    if (inHistory) {
      out.Line(names.history[state.parent] + " = " + State(static_cast<int>(i)) + ';');
    }
    out.Line("break;");
    out.Outdent();
  }
  Default(out, "break;");
  out.End();
}

void ClassBodies::ParentOf(ClassWriter& out) const {
  out.Block("switch (" + names.state + ')');
  for (std::size_t i = 0; i < machine.states.size(); ++i) {
    if (machine.states[i].children.empty()) continue;
    std::vector<std::string> constants;
    for (const int child : machine.states[i].children) constants.push_back(names.states[child]);
    Labels(out, "State", constants);
    out.Indent();
    out.Line("return " + State(static_cast<int>(i)) + ';');
    out.Outdent();
  }
  Default(out, "return " + NoState() + ';');
  out.End();
}

void ClassBodies::NameOf(ClassWriter& out, const std::string& type,
                         const std::string& variable) const {
  std::vector<std::pair<std::string, std::string>> cases;  // constant and name
  const bool hasOwn = !facts.constantName.empty();
  const auto add = [&cases, hasOwn](const std::string& constant, const std::string& name) {
    if (!hasOwn || constant != name) cases.emplace_back(constant, name);
  };
  const bool ofStates = type == "State";
  const std::size_t count = ofStates ? machine.states.size() : machine.events.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (ofStates) {
      add(names.states[i], machine.states[i].name);
    } else {
      add(names.events[i], machine.events[i].name);
    }
  }
  const std::string otherwise = "return " +
                                (hasOwn ? variable + '.' + std::string(facts.constantName)
                                        : Literal(ofStates ? names.noState : "")) +
                                ';';
  if (cases.empty() && hasOwn) {
    out.Line(otherwise);
    return;
  }
  out.Block("switch (" + variable + ')');
  for (const auto& [constant, name] : cases) {
    Labels(out, type.c_str(), {constant});
    out.Indent();
    out.Line("return " + Literal(name) + ';');
    out.Outdent();
  }
  Default(out, otherwise);
  out.End();
}

}  // namespace morvane
