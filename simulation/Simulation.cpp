#include "simulation/Simulation.h"

#include <algorithm>
#include <utility>

#include "machine/Machine.h"
#include "resources/Texts.h"

namespace morvane {

Simulation::Simulation(const Machine& machine, std::unique_ptr<ScriptEngine> engine, Asker asker)
    : Run(machine),
      script(machine, std::move(engine)),
      asker(std::move(asker)),
      interpreter(machine, *this) {}

Simulation::~Simulation() = default;

void Simulation::Start() {
  CutTo(0);
  rests.clear();
  details.clear();
  step = {};
  script.Begin();
  interpreter.Start();
  KeepRest();
  GoTo(0);
  Continue();
}

bool Simulation::Send(int event) {
  ReturnToRest();
  const std::size_t before = History().Size();
  step = {event, {}, {}, MachineState::kChart, false};
  const bool taken = interpreter.Dispatch(event);
  KeepRest();
  GoTo(before);
  Continue();
  return taken;
}

bool Simulation::IsFinished() const {
  const int active = Active();
  if (active == MachineState::kChart) return false;
  const MachineState& state = TheMachine().states[static_cast<std::size_t>(active)];
  return state.kind == MachineState::Kind::Final && state.parent == MachineState::kChart;
}

/// The first rest that doesn't lie before so many lines.
std::size_t Simulation::RestAt(std::size_t lines) const {
  const auto rest = std::ranges::lower_bound(rests, lines, {}, &Rest::lines);
  return static_cast<std::size_t>(rest - rests.begin());
}

/// Makes the end of the step that is shown the end of all.
void Simulation::ReturnToRest() {
  const std::size_t at = RestAt(Place());
  if (at >= rests.size()) return;
  rests.resize(at + 1);
  const Rest& rest = rests.back();
  CutTo(rest.lines);
  details.resize(rest.lines);
  GoTo(rest.lines);
  interpreter.Return(rest.position);
  script.SetVariables(rest.variables);
}

void Simulation::KeepRest() {
  NoteState();
  step.active = interpreter.Where().state;
  rests.push_back({History().Size(), interpreter.Where(), script.Variables(), std::move(step)});
  step = {};
}

std::vector<Simulation::Step> Simulation::Steps() const {
  std::vector<Step> steps;
  for (std::size_t i = 0; i < rests.size() && (i == 0 || rests[i - 1].lines < Place()); ++i) {
    steps.push_back(rests[i].step);
  }
  return steps;
}

std::vector<Simulation::Choice> Simulation::Choices() {
  const std::size_t at = RestAt(Place());
  const bool atRest = at < rests.size() && rests[at].lines == Place();
  if (atRest) script.SetVariables(rests[at].variables);
  std::vector<bool> accepted(TheMachine().events.size());
  for (const int state : History().ActiveStatesAt(Place())) {
    for (const int index : TheMachine().states[static_cast<std::size_t>(state)].outgoing) {
      const MachineTransition& each = TheMachine().transitions[static_cast<std::size_t>(index)];
      const bool isNew = std::ranges::any_of(
          each.events, [&](int event) { return !accepted[static_cast<std::size_t>(event)]; });
      if (!isNew || (atRest && !MayHold(index))) continue;
      for (const int event : each.events) accepted[static_cast<std::size_t>(event)] = true;
    }
  }
  // What a guard has changed by being asked.
  if (atRest) script.SetVariables(rests[at].variables);
  std::vector<Choice> choices;
  for (const bool wanted : {true, false}) {
    for (int event = 0; event < std::ssize(accepted); ++event) {
      const bool is = accepted[static_cast<std::size_t>(event)];
      if (is == wanted) choices.push_back({event, is});
    }
  }
  return choices;
}

/// As far as can be known without asking.
bool Simulation::MayHold(int index) {
  const MachineTransition& transition = TheMachine().transitions[static_cast<std::size_t>(index)];
  if (transition.guard.IsEmpty()) return true;
  if (const auto answer = answers.find(index); answer != answers.end()) return answer->second;
  if (guards == Guards::False) return false;
  if (guards != Guards::Script) return true;
  std::string fault;
  const std::optional<bool> holds = script.Test(transition.guard, fault);
  return holds.value_or(unknown != Guards::False);
}

std::vector<int> Simulation::Queue() const {
  const std::size_t at = Place();
  if (at == 0 || at > details.size() || details[at - 1].queue == nullptr) return {};
  return *details[at - 1].queue;
}

std::string Simulation::Variables() const {
  const std::size_t at = Place();
  if (at == 0 || at > details.size() || details[at - 1].variables == nullptr) {
    return script.Variables();
  }
  return *details[at - 1].variables;
}

std::string Simulation::Assign(const std::string& name, const std::string& expression) {
  ReturnToRest();
  std::string reason = script.Assign(name, expression);
  if (rests.empty() || !reason.empty()) return reason;
  rests.back().variables = script.Variables();
  rests.back().step.assigned.emplace_back(name, expression);
  NoteState();
  return reason;
}

std::optional<bool> Simulation::Check(const std::string& condition, std::string& fault) {
  const std::string variables = script.Variables();
  const std::optional<bool> holds = script.Test({condition, 0}, fault);
  script.SetVariables(variables);
  return holds;
}

int Simulation::IndexOf(const MachineTransition& transition) const {
  return static_cast<int>(&transition - TheMachine().transitions.data());
}

void Simulation::SetAnswer(int transition, std::optional<bool> answer) {
  answers.erase(transition);
  if (answer) answers.emplace(transition, *answer);
}

bool Simulation::Holds(const MachineTransition& transition) {
  const auto answer = answers.find(IndexOf(transition));
  if (answer != answers.end()) return Answer(answer->first, answer->second);
  if (guards != Guards::Script) return Decide(transition, guards, {});
  std::string fault;
  const std::optional<bool> holds = script.Test(transition.guard, fault);
  NoteState();
  if (holds) return *holds;
  AddNote(Said("guard of %1: %2", {std::to_string(transition.id), fault}));
  return Decide(transition, unknown, fault);
}

bool Simulation::Decide(const MachineTransition& transition, Guards rule,
                        const std::string& reason) {
  const int index = IndexOf(transition);
  if (rule != Guards::Ask || asker == nullptr) return Answer(index, rule == Guards::True);
  // The user sees where the machine is.
  GoTo(History().Size());
  return Answer(index, asker(transition, reason));
}

bool Simulation::Answer(int transition, bool holds) {
  step.answers.emplace_back(transition, holds);
  return holds;
}

void Simulation::Act(const MachineText& code) {
  const ChartScript::Outcome outcome = script.Act(code);
  AddNote(outcome.note);
  for (const std::string& name : outcome.sent) {
    const std::optional<int> event = Format().FindEvent(name);
    if (!event) {
      AddNote(Said("no such event: %1", {name}));
    } else if (!interpreter.Dispatch(*event)) {
      AddNote(Said("too many events wait: %1", {name}));
    }
  }
  NoteState();
}

void Simulation::Trace(std::string_view kind, std::string_view name) {
  const std::optional<TraceLine> line = Format().Parse(kind, name);
  if (!line) return;
  Add(*line);
  details.emplace_back();
  const bool isOwn = line->kind == TraceLine::Kind::Ignored && line->of == step.event;
  step.isIgnored = step.isIgnored || isOwn;
  NoteState();
}

void Simulation::NoRest() {
  AddNote(Said("the chart goes on without an event for ever; the step was cut short here"));
}

/// Queue and variables belong to the line that was added last.
void Simulation::NoteState() {
  if (details.empty()) return;
  const std::size_t last = details.size() - 1;
  const Detail before = last > 0 ? details[last - 1] : Detail();
  const auto& waiting = interpreter.Where().waiting;
  std::vector<int> queue(waiting.begin(), waiting.end());
  Detail& detail = details[last];
  const bool sameQueue = before.queue != nullptr && *before.queue == queue;
  detail.queue = sameQueue ? before.queue : std::make_shared<std::vector<int>>(std::move(queue));
  const bool sameVariables = before.variables != nullptr && *before.variables == script.Variables();
  detail.variables =
      sameVariables ? before.variables : std::make_shared<std::string>(script.Variables());
}

}  // namespace morvane
