#include "generators/ClassMembers.h"

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

std::vector<ClassMember> ClassMembers::Make() {
  Public();
  if (options.debug) Debug();
  Steps();
  Reactions();
  Settling();
  Landing();
  Leaving();
  Texts();
  return std::move(members);
}

void ClassMembers::Add(std::string doc, std::string type, std::string name, Body body) {
  ClassMember& member = members.emplace_back();
  if (!doc.empty()) member.doc.push_back(std::move(doc));
  member.type = std::move(type);
  member.name = std::move(name);
  member.body = std::move(body);
}

/// Gives the member that was added last a parameter.
void ClassMembers::AddOn(const char* type, const std::string& variable) {
  members.back().parameterType = type;
  members.back().parameter = variable;
}

void ClassMembers::Public() {
  const std::string boolean(facts.boolean);
  Add("Starts the machine, or starts it anew. It does nothing while a step is under way.", "void",
      names.start, [this](ClassWriter& out) { StartBody(out); });
  Add("Handles an event. Sent from within an action of the machine, it waits until the step is "
      "done.",
      boolean, names.dispatch, [this](ClassWriter& out) { DispatchBody(out); });
  members.back().doc.push_back(
      "False: it is refused, as the machine doesn't run or too many events wait.");
  AddOn("Event", names.event);
  Add("The innermost active state; during a transition the one that it leaves or enters.", "State",
      names.currentState,
      [this](ClassWriter& out) { out.Line("return " + names.activeState + ';'); });
  members.back().isConst = true;
  Add("Whether a state is active, be it as one that holds the innermost one.", boolean, names.isIn,
      [this](ClassWriter& out) { IsInBody(out); });
  AddOn("State", names.state);
  members.back().isConst = true;
  Add("Whether the machine has come to its end.", boolean, names.isFinished,
      [this](ClassWriter& out) { FinishedBody(out); });
  members.back().isConst = true;
  for (ClassMember& member : members) member.access = ClassMember::Access::Public;
}

void ClassMembers::Debug() {
  Add("A state as the chart calls it.", std::string(facts.text), names.stateName,
      [this](ClassWriter& out) { NameBody(out, "State", names.state); });
  AddOn("State", names.state);
  members.back().isStatic = true;
  members.back().access = ClassMember::Access::Public;
  Add("", std::string(facts.text), names.eventName,
      [this](ClassWriter& out) { NameBody(out, "Event", names.event); });
  AddOn("Event", names.event);
  members.back().isStatic = true;
  if (facts.print.empty()) return;
  Add("Tells what the machine does: event, exit, take, enter or ignored, and what it is about.",
      "void", names.trace, [this](ClassWriter& out) { out.Line(facts.print); });
  members.back().access = ClassMember::Access::Hook;
  const std::string text(facts.text);
  AddOn("", text + " kind, " + text + " name");
}

void ClassMembers::Steps() {
  Add("", "void", names.handle, [this](ClassWriter& out) { HandleBody(out); });
  AddOn("Event", options.debug || plan.hasReactions ? names.event : "");
  Add("", "void", names.handleWaiting, [this](ClassWriter& out) { HandleWaitingBody(out); });
  Add("", std::string(facts.boolean), names.enqueue,
      [this](ClassWriter& out) { EnqueueBody(out); });
  AddOn("Event", names.event);
}

void ClassMembers::Reactions() {
  if (!plan.hasReactions) return;
  const std::string boolean(facts.boolean);
  Add("Whether the active state, or one around it, had a transition to take.", boolean,
      names.reactTo, [this](ClassWriter& out) { ReactBody(out); });
  AddOn("Event", names.event);
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    if (plan.rows[state].empty()) continue;
    Add("", boolean, names.react[state], [this, state](ClassWriter& out) { RowsBody(out, state); });
    AddOn("Event", names.event);
  }
}

void ClassMembers::Settling() {
  if (!plan.settles) return;
  const std::string boolean(facts.boolean);
  Add("Takes transitions without an event until there is none to take.", "void", names.settleAll,
      [this](ClassWriter& out) { SettleBody(out); });
  Add("", boolean, names.takeWithoutEvent, [this](ClassWriter& out) { WithoutEventBody(out); });
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    const bool isSimple = machine.states[state].kind == MachineState::Kind::Simple;
    const bool settles = !plan.eventless[state].empty() && isSimple;
    if (!settles && !plan.completes[state]) continue;
    Add("", boolean, names.settle[state], [this, state](ClassWriter& out) {
      const std::vector<int>& tried = plan.eventless[state];
      Row(out, tried);
      if (!machine.transitions[tried.back()].guard.IsEmpty()) out.Line("return false;");
    });
  }
}

void ClassMembers::Landing() {
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    if (!plan.keepsHistory[state]) continue;
    Add("Goes on inside " + machine.states[state].name + ": where it was left, or from the start.",
        "void", names.resume[state], [this, state](ClassWriter& out) { ResumeBody(out, state); });
  }
  for (int i = 0; i < std::ssize(machine.transitions); ++i) {
    Add(Route(i), "void", names.take[i], [this, i](ClassWriter& out) { TakeBody(out, i); });
  }
}

void ClassMembers::Leaving() {
  if (plan.usesLeaveUpTo) {
    Add("Leaves what is active inside a state, the innermost first.", "void", names.leaveUpTo,
        [this](ClassWriter& out) { LeaveUpToBody(out); });
    AddOn("State", names.scope);
  }
  if (plan.usesLeaveState) {
    Add("", "void", names.leaveState, [this](ClassWriter& out) { LeaveStateBody(out); });
    AddOn("State", names.state);
  }
  if (!plan.isNested) return;
  Add("", "State", names.parentOf, [this](ClassWriter& out) { ParentOfBody(out); });
  AddOn("State", names.state);
  members.back().isStatic = true;
}

void ClassMembers::Texts() {
  const auto add = [this](const char* doc, const std::string& of, const std::string& name,
                          const MachineText& text) {
    if (text.IsEmpty()) return;
    Add(doc + of, "void", name, [&text](ClassWriter& out) { out.UserText(text.text, text.line); });
  };
  for (int i = 0; i < std::ssize(machine.states); ++i) {
    const MachineState& state = machine.states[i];
    add("Entry of ", state.name, names.enter[i], state.entry);
    add("Exit of ", state.name, names.leave[i], state.exit);
  }
  for (int i = 0; i < std::ssize(machine.transitions); ++i) {
    const MachineTransition& each = machine.transitions[i];
    if (!each.guard.IsEmpty()) {
      Add("Guard of " + Route(i), std::string(facts.boolean), names.guard[i],
          [&each](ClassWriter& out) { out.UserResult(each.guard.text, each.guard.line); });
    }
    add("Effect of ", Route(i), names.effect[i], each.effect);
  }
}

/// "Listen to SynSent on CONNECT, OPEN"
std::string ClassMembers::Route(int transition) const {
  const MachineTransition& each = machine.transitions[transition];
  const std::string target = machine.states[each.target].name;
  if (each.isInitial) {
    return (each.source == kChart ? "Start" : "Start of " + machine.states[each.source].name) +
           " to " + target;
  }
  std::string route = machine.states[each.source].name + " to " + target;
  for (std::size_t i = 0; i < each.events.size(); ++i) {
    route += (i == 0 ? " on " : ", ") + machine.events[each.events[i]].name;
  }
  return route;
}

std::string ClassMembers::Constant(const char* type, const std::string& name) const {
  return type + std::string(facts.scope) + name;
}

std::string ClassMembers::State(int state) const {
  return state == kChart ? NoState() : Constant("State", names.states[state]);
}

std::string ClassMembers::NoState() const { return Constant("State", names.noState); }

void ClassMembers::Trace(ClassWriter& out, const char* kind, const std::string& expression) const {
  if (options.debug) out.Line(names.trace + "(\"" + kind + "\", " + expression + ");");
}

void ClassMembers::Labels(ClassWriter& out, const char* type,
                          const std::vector<std::string>& constants) const {
  for (const std::string& each : constants) {
    out.Line("case " + (facts.bareLabels ? each : Constant(type, each)) + ':');
  }
}

void ClassMembers::Default(ClassWriter& out, const std::string& statement) const {
  out.Line("default:");
  out.Indent();
  out.Line(statement);
  out.Outdent();
}

void ClassMembers::Step(ClassWriter& out, const Body& body) const {
  out.Line(names.inStep + " = true;");
  if (facts.hasFinally) out.Block("try");
  body(out);
  out.Line(Call(names.handleWaiting));
  if (facts.hasFinally) out.EndAndBlock("finally");
  out.Line(names.queueLength + " = 0;");
  out.Line(names.inStep + " = false;");
  if (facts.hasFinally) out.End();
}

void ClassMembers::StartBody(ClassWriter& out) const {
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

void ClassMembers::DispatchBody(ClassWriter& out) const {
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

void ClassMembers::FinishedBody(ClassWriter& out) const {
  std::string condition;
  for (const int state : machine.outermost) {
    if (machine.states[state].kind != MachineState::Kind::Final) continue;
    if (!condition.empty()) condition += " || ";
    condition += names.activeState + " == " + State(state);
  }
  out.Line("return " + (condition.empty() ? "false" : condition) + ';');
}

void ClassMembers::IsInBody(ClassWriter& out) const {
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

void ClassMembers::HandleBody(ClassWriter& out) const {
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

void ClassMembers::HandleWaitingBody(ClassWriter& out) const {
  out.Block("while (" + names.queueLength + " > 0 && !" + names.isFinished + "())");
  out.Line(std::string(facts.fixed) + "Event " + names.next + " = " + names.queue + '[' +
           names.queueHead + "];");
  out.Line(names.queueHead + " = (" + names.queueHead + " + 1) % " + names.slots + ';');
  out.Line("--" + names.queueLength + ';');
  out.Line(names.handle + '(' + names.next + ");");
  out.End();
}

void ClassMembers::EnqueueBody(ClassWriter& out) const {
  out.Block("if (" + names.queueLength + " == " + std::string(facts.queueSize) + ')');
  out.Line("return false;");
  out.End();
  out.Line(names.queue + "[(" + names.queueHead + " + " + names.queueLength + ") % " + names.slots +
           "] = " + names.event + ';');
  out.Line("++" + names.queueLength + ';');
  out.Line("return true;");
}

void ClassMembers::ReactBody(ClassWriter& out) const {
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

void ClassMembers::RowsBody(ClassWriter& out, int state) const {
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
void ClassMembers::Row(ClassWriter& out, const std::vector<int>& transitions) const {
  for (const int each : transitions) {
    const bool isGuarded = !machine.transitions[each].guard.IsEmpty();
    if (isGuarded) out.Block("if (" + names.guard[each] + "())");
    out.Line(Call(names.take[each]));
    out.Line("return true;");
    if (isGuarded) out.End();
  }
}

void ClassMembers::SettleBody(ClassWriter& out) const {
  const std::string limit = names.taken + " < " + names.mostTaken;
  out.Line("int " + names.taken + " = 0;");
  out.Block("while (" + limit + " && " + names.takeWithoutEvent + "())");
  out.Line("++" + names.taken + ';');
  out.End();
  out.Line(std::string(facts.assertion[0]) + limit + std::string(facts.assertion[1]) +
           Literal("The machine does not settle") + std::string(facts.assertion[2]));
}

void ClassMembers::WithoutEventBody(ClassWriter& out) const {
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

void ClassMembers::TakeBody(ClassWriter& out, int transition) const {
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

void ClassMembers::LeaveOne(ClassWriter& out, int state) const {
  const MachineState& each = machine.states[state];
  Trace(out, "exit", Literal(each.name));
  if (!each.exit.IsEmpty()) out.Line(Call(names.leave[state]));
  if (each.parent != kChart && plan.keepsHistory[each.parent]) {
    out.Line(names.history[each.parent] + " = " + State(state) + ';');
  }
}

void ClassMembers::EnterState(ClassWriter& out, int state, bool isLast) const {
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

void ClassMembers::Land(ClassWriter& out, int state) const {
  const int initial = machine.states[state].initial;
  if (plan.keepsHistory[state]) {
    out.Line(Call(names.resume[state]));
  } else if (initial != kNone) {
    out.Line(Call(names.take[initial]));
  }
}

void ClassMembers::ResumeBody(ClassWriter& out, int state) const {
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

void ClassMembers::LeaveUpToBody(ClassWriter& out) const {
  out.Block("for (State " + names.state + " = " + names.activeState + "; " + names.state + " != " +
            names.scope + "; " + names.state + " = " + names.parentOf + '(' + names.state + "))");
  Trace(out, "exit", names.stateName + '(' + names.state + ')');
  if (plan.usesLeaveState) out.Line(names.leaveState + '(' + names.state + ");");
  out.End();
}

void ClassMembers::LeaveStateBody(ClassWriter& out) const {
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

void ClassMembers::ParentOfBody(ClassWriter& out) const {
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

void ClassMembers::NameBody(ClassWriter& out, const std::string& type,
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
