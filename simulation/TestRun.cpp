#include "simulation/TestRun.h"

#include <algorithm>
#include <optional>

#include "machine/Machine.h"
#include "resources/Texts.h"
#include "simulation/Simulation.h"

namespace morvane {

namespace {

using Kind = ChartTest::Line::Kind;

/// One case on its way.
class Bench {
 public:
  Bench(const Machine& machine, const ChartTest& test)
      : machine(machine),
        test(test),
        simulation(machine, Service<ScriptEngines>::Get().Start(),
                   [this](const MachineTransition& transition, const std::string& reason) {
                     return Ask(transition, reason);
                   }) {}

  TestVerdict Execute() {
    // What is decided in front of the first event may be asked on the way to the initial state.
    auto line = test.lines.begin();
    for (; line != test.lines.end() && line->kind == Kind::Guard; ++line) Take(*line);
    if (verdict.reason.empty()) simulation.Start();
    for (; line != test.lines.end() && verdict.reason.empty(); ++line) Take(*line);
    verdict.name = test.name;
    verdict.passed = verdict.reason.empty();
    return verdict;
  }

 private:
  void Fail(const std::string& reason) {
    if (!verdict.reason.empty()) return;
    verdict.reason = reason;
    verdict.line = number;
  }

  bool Ask(const MachineTransition& transition, const std::string& reason) {
    const std::string id = std::to_string(transition.id);
    Fail(
        Said("the guard of transition %1 can't be told (%2); give it by \"guard %1 true\" or "
             "\"false\"",
             {id, reason}));
    return false;
  }

  void Take(const ChartTest::Line& line) {
    number = line.number;
    switch (line.kind) {
      case Kind::Send: return Send(line.name);
      case Kind::Guard: return Decide(line.name, line.holds);
      case Kind::Set: return Set(line);
      case Kind::Expect: return Expect(line.name, true);
      case Kind::ExpectNot: return Expect(line.name, false);
      case Kind::ExpectIgnored:
        if (!wasIgnored) Fail(Said("the event was not ignored"));
        return;
      case Kind::ExpectThat: return ExpectThat(line.text);
    }
  }

  void Send(const std::string& name) {
    const std::optional<int> event = simulation.Format().FindEvent(name);
    if (!event) return Fail(Said("the chart has no event \"%1\"", {name}));
    simulation.Send(*event);
    const std::vector<Simulation::Step> steps = simulation.Steps();
    wasIgnored = !steps.empty() && steps.back().isIgnored;
  }

  void Decide(const std::string& name, bool holds) {
    bool found = false;
    for (int i = 0; i < std::ssize(machine.transitions); ++i) {
      const MachineTransition& each = machine.transitions[static_cast<std::size_t>(i)];
      if (each.guard.IsEmpty()) continue;
      if (std::to_string(each.id) != name && each.guard.text != name) continue;
      simulation.SetAnswer(i, holds);
      found = true;
    }
    if (!found) Fail(Said("no transition has the guard \"%1\"", {name}));
  }

  void Set(const ChartTest::Line& line) {
    const std::string reason = simulation.Assign(line.name, line.text);
    if (!reason.empty()) Fail(Said("\"%1\" can't be set: %2", {line.name, reason}));
  }

  void Expect(const std::string& name, bool active) {
    const std::optional<int> state = simulation.Format().FindState(name);
    if (!state) return Fail(Said("the chart has no state \"%1\"", {name}));
    const std::vector<int> all = simulation.History().ActiveStatesAt(simulation.Place());
    const bool is =
        std::ranges::any_of(all, [&](int each) { return IsCalled(each, name, *state); });
    if (is == active) return;
    Fail(active ? Said("state \"%1\" is not active; active: %2", {name, Named(all)})
                : Said("state \"%1\" is active; active: %2", {name, Named(all)}));
  }

  /// Several states may have one title.
  bool IsCalled(int state, const std::string& name, int first) const {
    return state == first || machine.states[static_cast<std::size_t>(state)].title == name;
  }

  std::string Named(const std::vector<int>& states) const {
    std::string names;
    for (const int state : states) {
      const std::string& title = machine.states[static_cast<std::size_t>(state)].title;
      names = names.empty() ? Said("\"%1\"", {title}) : Said("%1 in \"%2\"", {names, title});
    }
    return names.empty() ? Said("no state") : names;
  }

  void ExpectThat(const std::string& condition) {
    std::string fault;
    const std::optional<bool> holds = simulation.Check(condition, fault);
    if (!holds) return Fail(Said("\"%1\" can't be told: %2", {condition, fault}));
    if (!*holds) {
      Fail(Said("\"%1\" does not hold; variables: %2", {condition, simulation.Variables()}));
    }
  }

  const Machine& machine;
  const ChartTest& test;
  TestVerdict verdict{};
  int number = 0;
  bool wasIgnored = false;
  Simulation simulation;
};

std::string TitleOf(const Machine& machine, int state) {
  const MachineState& found = machine.states[static_cast<std::size_t>(state)];
  const auto same = std::ranges::count(machine.states, found.title, &MachineState::title);
  return same == 1 && !found.title.empty() ? found.title : found.name;
}

void RecordAnswers(const Machine& machine, const Simulation::Step& step, ChartTest& test) {
  for (const auto& [transition, holds] : step.answers) {
    const MachineTransition& of = machine.transitions[static_cast<std::size_t>(transition)];
    test.lines.push_back({Kind::Guard, std::to_string(of.id), {}, holds});
  }
}

}  // namespace

TestVerdict TestRun::Execute(const ChartTest& test) const { return Bench(machine, test).Execute(); }

std::vector<TestVerdict> TestRun::ExecuteAll(const std::vector<ChartTest>& tests) const {
  std::vector<TestVerdict> verdicts;
  verdicts.reserve(tests.size());
  for (const ChartTest& test : tests) verdicts.push_back(Execute(test));
  return verdicts;
}

ChartTest TestRun::Record(const Simulation& simulation, const std::string& name) {
  const Machine& machine = simulation.TheMachine();
  ChartTest test{name, 0};
  for (const Simulation::Step& step : simulation.Steps()) {
    RecordAnswers(machine, step, test);
    if (step.event != Simulation::kNoEvent) {
      const MachineEvent& event = machine.events[static_cast<std::size_t>(step.event)];
      test.lines.push_back({Kind::Send, event.written});
    }
    if (step.isIgnored) test.lines.push_back({Kind::ExpectIgnored});
    if (step.active != MachineState::kChart) {
      test.lines.push_back({Kind::Expect, TitleOf(machine, step.active)});
    }
    for (const auto& [variable, value] : step.assigned) {
      test.lines.push_back({Kind::Set, variable, value});
    }
  }
  return test;
}

}  // namespace morvane
