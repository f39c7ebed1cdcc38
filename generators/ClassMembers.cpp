#include "generators/ClassMembers.h"

#include "generators/ClassBodies.h"
#include "generators/ClassFacts.h"
#include "generators/ClassNames.h"
#include "generators/ClassPlan.h"
#include "generators/ClassWriter.h"
#include "generators/Emitter.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

constexpr int kChart = MachineState::kChart;

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
      names.start, [this](ClassWriter& out) { bodies.Start(out); });
  Add("Handles an event. Sent from within an action of the machine, it waits until the step is "
      "done.",
      boolean, names.dispatch, [this](ClassWriter& out) { bodies.Dispatch(out); });
  members.back().doc.push_back(
      "False: it is refused, as the machine doesn't run or too many events wait.");
  AddOn("Event", names.event);
  Add("The innermost active state; during a transition the one that it leaves or enters.", "State",
      names.currentState,
      [this](ClassWriter& out) { out.Line("return " + names.activeState + ';'); });
  members.back().isConst = true;
  Add("Whether a state is active, be it as one that holds the innermost one.", boolean, names.isIn,
      [this](ClassWriter& out) { bodies.IsIn(out); });
  AddOn("State", names.state);
  members.back().isConst = true;
  Add("Whether the machine has come to its end.", boolean, names.isFinished,
      [this](ClassWriter& out) { bodies.IsFinished(out); });
  members.back().isConst = true;
  for (ClassMember& member : members) member.access = ClassMember::Access::Public;
}

void ClassMembers::Debug() {
  Add("A state as the chart calls it.", std::string(facts.text), names.stateName,
      [this](ClassWriter& out) { bodies.NameOf(out, "State", names.state); });
  AddOn("State", names.state);
  members.back().isStatic = true;
  members.back().access = ClassMember::Access::Public;
  Add("", std::string(facts.text), names.eventName,
      [this](ClassWriter& out) { bodies.NameOf(out, "Event", names.event); });
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
  Add("", "void", names.handle, [this](ClassWriter& out) { bodies.Handle(out); });
  AddOn("Event", options.debug || plan.hasReactions ? names.event : "");
  Add("", "void", names.handleWaiting, [this](ClassWriter& out) { bodies.HandleWaiting(out); });
  Add("", std::string(facts.boolean), names.enqueue,
      [this](ClassWriter& out) { bodies.Enqueue(out); });
  AddOn("Event", names.event);
}

void ClassMembers::Reactions() {
  if (!plan.hasReactions) return;
  const std::string boolean(facts.boolean);
  Add("Whether the active state, or one around it, had a transition to take.", boolean,
      names.reactTo, [this](ClassWriter& out) { bodies.ReactTo(out); });
  AddOn("Event", names.event);
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    if (plan.rows[state].empty()) continue;
    Add("", boolean, names.react[state],
        [this, state](ClassWriter& out) { bodies.React(out, state); });
    AddOn("Event", names.event);
  }
}

void ClassMembers::Settling() {
  if (!plan.settles) return;
  const std::string boolean(facts.boolean);
  Add("Takes transitions without an event until there is none to take.", "void", names.settleAll,
      [this](ClassWriter& out) { bodies.SettleAll(out); });
  Add("", boolean, names.takeWithoutEvent,
      [this](ClassWriter& out) { bodies.TakeWithoutEvent(out); });
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    const bool isSimple = machine.states[state].kind == MachineState::Kind::Simple;
    const bool settles = !plan.eventless[state].empty() && isSimple;
    if (!settles && !plan.completes[state]) continue;
    Add("", boolean, names.settle[state],
        [this, state](ClassWriter& out) { bodies.TryEventless(out, state); });
  }
}

void ClassMembers::Landing() {
  for (int state = 0; state < std::ssize(machine.states); ++state) {
    if (!plan.keepsHistory[state]) continue;
    Add("Goes on inside " + machine.states[state].name + ": where it was left, or from the start.",
        "void", names.resume[state],
        [this, state](ClassWriter& out) { bodies.Resume(out, state); });
  }
  for (int i = 0; i < std::ssize(machine.transitions); ++i) {
    Add(Route(i), "void", names.take[i], [this, i](ClassWriter& out) { bodies.Take(out, i); });
  }
}

void ClassMembers::Leaving() {
  if (plan.usesLeaveUpTo) {
    Add("Leaves what is active inside a state, the innermost first.", "void", names.leaveUpTo,
        [this](ClassWriter& out) { bodies.LeaveUpTo(out); });
    AddOn("State", names.scope);
  }
  if (plan.usesLeaveState) {
    Add("", "void", names.leaveState, [this](ClassWriter& out) { bodies.LeaveState(out); });
    AddOn("State", names.state);
  }
  if (!plan.isNested) return;
  Add("", "State", names.parentOf, [this](ClassWriter& out) { bodies.ParentOf(out); });
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

}  // namespace morvane
