#include "generators/ClassNames.h"

#include <algorithm>
#include <cctype>

#include "generators/ClassFacts.h"
#include "generators/NamePool.h"

namespace morvane {

namespace {

/// With the first letter in upper or lower case.
std::string Cased(std::string name, bool lower) {
  const auto first = static_cast<unsigned char>(name[0]);
  name[0] = static_cast<char>(lower ? std::tolower(first) : std::toupper(first));
  return name;
}

void Warn(std::vector<Problem>& problems, const ClassFacts& facts, const std::string& what,
          const std::string& was, const std::string& is) {
  const std::string name = std::string(facts.language) + ' ' + what;
  problems.push_back({.severity = Problem::Severity::Warning,
                      .message = was.empty()
                                     ? "The " + name + " has no name, it is called \"" + is + '"'
                                     : "The " + name + " can't be called \"" + was +
                                           "\", it is called \"" + is + '"'});
}

/// "Public" names, which stay as they are, so that a class or a package has to step aside.
NamePool FixedNames(const ClassFacts& facts, const ClassNames& names) {
  NamePool pool;
  pool.Reserve(facts.words);
  pool.Reserve(facts.queueSize);
  pool.Reserve("Event");
  pool.Reserve("State");
  for (const std::string* name : {&names.start, &names.dispatch, &names.currentState, &names.isIn,
                                  &names.isFinished, &names.stateName}) {
    pool.Reserve(*name);
  }
  return pool;
}

std::string ClassNameOf(const std::string& wanted, const ClassFacts& facts, NamePool pool,
                        std::vector<Problem>& problems) {
  pool.Reserve(facts.typeWords);
  std::string name = CleanIdentifier(wanted);
  if (name.find_first_not_of('_') == std::string::npos) name = ModelProperties::kDefaultClass;
  name = pool.Add(name);
  if (name != wanted) Warn(problems, facts, "class", wanted, name);
  return name;
}

std::vector<std::string> PackageOf(const std::string& wanted, const ClassFacts& facts,
                                   std::vector<Problem>& problems) {
  std::vector<std::string> parts;
  std::string joined;
  for (std::size_t at = 0; at < wanted.size();) {
    const std::size_t end = std::min(wanted.find_first_of(":.", at), wanted.size());
    NamePool words;
    words.Reserve(facts.words);
    const std::string part = CleanIdentifier(wanted.substr(at, end - at));
    if (!part.empty()) {
      parts.push_back(words.Add(part));
      if (!joined.empty()) joined += facts.scope;
      joined += parts.back();
    }
    at = end + 1;
  }
  if (joined != wanted) Warn(problems, facts, std::string(facts.packageWord), wanted, joined);
  return parts;
}

/// Everything that the user's code mentions: a member of that name would be taken for what it
/// means.
void ReserveUserNames(const Machine& machine, const ClassFacts& facts, NamePool& pool) {
  pool.ReserveFrom(machine.properties.*facts.declarations);
  for (const MachineState& state : machine.states) {
    pool.ReserveFrom(state.entry.text);
    pool.ReserveFrom(state.exit.text);
  }
  for (const MachineTransition& transition : machine.transitions) {
    pool.ReserveFrom(transition.guard.text);
    pool.ReserveFrom(transition.effect.text);
  }
}

}  // namespace

ClassNames::ClassNames(const Machine& machine, const ClassFacts& facts,
                       std::vector<Problem>& problems) {
  const auto cased = [&facts](const std::string& name) { return Cased(name, facts.lowerMethods); };
  start = cased("Start");
  dispatch = cased("Dispatch");
  currentState = cased("CurrentState");
  isIn = cased("IsIn");
  isFinished = cased("IsFinished");
  stateName = cased("StateName");

  NamePool pool = FixedNames(facts, *this);
  className = ClassNameOf(machine.properties.*facts.className, facts, pool, problems);
  package = PackageOf(machine.properties.*facts.package, facts, problems);
  macro = MacroName(className);

  NamePool stateNames;
  NamePool eventNames;
  stateNames.Reserve(facts.words);
  eventNames.Reserve(facts.words);
  for (const MachineState& each : machine.states) states.push_back(stateNames.Add(each.name));
  for (const MachineEvent& each : machine.events) events.push_back(eventNames.Add(each.name));
  noState = stateNames.Add("None");

  pool.Reserve(className);
  pool.Reserve(facts.typeWords);
  ReserveUserNames(machine, facts, pool);
  const auto method = [&](const std::string& name) { return pool.Add(cased(name)); };
  handle = method("Handle");
  reactTo = method("ReactTo");
  settleAll = method("Settle");
  takeWithoutEvent = method("TakeWithoutEvent");
  handleWaiting = method("HandleWaiting");
  enqueue = method("Enqueue");
  leaveUpTo = method("LeaveUpTo");
  leaveState = method("LeaveState");
  parentOf = method("ParentOf");
  eventName = method("EventName");
  trace = facts.print.empty() ? macro + "_TRACE" : method("Trace");
  activeState = pool.Add("activeState");
  inStep = pool.Add("inStep");
  completionPending = pool.Add("completionPending");
  queue = pool.Add("queue");
  queueHead = pool.Add("queueHead");
  queueLength = pool.Add("queueLength");
  slots = facts.hasHeader ? pool.Add(facts.queueSlots) : queue + std::string(facts.queueSlots);
  mostTaken = pool.Add(cased("MostTaken"));
  event = pool.Add(facts.eventVariable);
  state = pool.Add("state");
  scope = pool.Add("scope");
  taken = pool.Add("taken");
  next = pool.Add("next");

  for (const MachineState& each : machine.states) {
    const std::string name = Cased(each.name, false);
    enter.push_back(method("Enter" + name));
    leave.push_back(method("Leave" + name));
    react.push_back(method("ReactIn" + name));
    settle.push_back(method((each.children.empty() ? "Settle" : "Complete") + name));
    resume.push_back(method("Resume" + name));
    history.push_back(pool.Add("historyOf" + name));
  }
  for (const MachineTransition& each : machine.transitions) {
    const std::string number = CleanIdentifier(std::to_string(each.id)).substr(each.id >= 0);
    take.push_back(method("Take" + number));
    guard.push_back(method("Guard" + number));
    effect.push_back(method("Effect" + number));
  }
}

}  // namespace morvane
