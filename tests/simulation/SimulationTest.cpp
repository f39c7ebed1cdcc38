#include <gtest/gtest.h>

#include "simulation/Simulation.h"
#include "simulation/TestRun.h"
#include "tests/simulation/SketchedMachine.h"

namespace morvane {

namespace {

/// A simulation without an engine: every guard is asked.
class SimulationTest : public testing::Test {
 protected:
  int Event(const std::string& name) const { return *simulation.Format().FindEvent(name); }
  std::string Active() const {
    const int state = simulation.Active();
    return state < 0 ? "-" : lamp.states[static_cast<std::size_t>(state)].name;
  }
  std::string Accepted() {
    std::string names;
    for (const Simulation::Choice& choice : simulation.Choices()) {
      if (!choice.isAccepted) continue;
      names += lamp.events[static_cast<std::size_t>(choice.event)].name + ' ';
    }
    return names;
  }

  const Machine lamp = Lamp();
  bool answer = true;
  int asked = 0;
  std::string activeWhenAsked;
  Simulation simulation{lamp, nullptr, [this](const MachineTransition&, const std::string&) {
                          ++asked;
                          activeWhenAsked = Active();
                          return answer;
                        }};
};

TEST_F(SimulationTest, RunsToRestAndForgetsWhatLayBehindANewEvent) {
  simulation.Start();
  EXPECT_EQ(Active(), "Off");
  EXPECT_EQ(Accepted(), "go ");
  EXPECT_TRUE(simulation.Send(Event("go")));
  EXPECT_EQ(Active(), "Dim");
  EXPECT_EQ(Accepted(), "go never up ");
  simulation.Send(Event("up"));
  EXPECT_EQ(Active(), "Bright");
  EXPECT_EQ(activeWhenAsked, "Dim") << "the user sees where the machine is";
  const std::size_t end = simulation.History().Size();

  // Back into the middle of the step that led to Dim, and from there another way.
  simulation.GoTo(4);
  EXPECT_EQ(Active(), "-");
  simulation.Send(Event("never"));
  EXPECT_EQ(Active(), "Off") << "the step was done first";
  EXPECT_LT(simulation.History().Size(), end + 3);
  simulation.Send(Event("go"));
  EXPECT_EQ(Active(), "Dim") << "the machine itself has gone back, too";
}

TEST_F(SimulationTest, StopsAtBreakpoints) {
  simulation.ToggleBreakpoint(3);
  simulation.ToggleBreakpoint(14);
  simulation.Start();
  simulation.Send(Event("go"));
  EXPECT_EQ(Active(), "On");
  EXPECT_FALSE(simulation.IsAtEnd());
  simulation.Continue();
  EXPECT_EQ(simulation.TextOf(simulation.Place() - 1), "take 14");
  simulation.Send(Event("go"));
  EXPECT_EQ(Active(), "Off") << "the rest of the step comes before the next event";
}

TEST_F(SimulationTest, DecidesGuardsByRule) {
  using Guards = Simulation::Guards;
  struct Case {
    Guards rule;
    Guards unknown;
    bool answer;
    int asked;
    const char* active;
  };
  const Case cases[] = {{Guards::Script, Guards::Ask, true, 1, "Bright"},
                        {Guards::Script, Guards::Ask, false, 1, "Dim"},
                        {Guards::Script, Guards::True, false, 0, "Bright"},
                        {Guards::Script, Guards::False, true, 0, "Dim"},
                        {Guards::Ask, Guards::True, false, 1, "Dim"},
                        {Guards::True, Guards::Ask, false, 0, "Bright"},
                        {Guards::False, Guards::Ask, true, 0, "Dim"}};
  for (const Case& each : cases) {
    simulation.SetGuards(each.rule);
    simulation.SetUnknown(each.unknown);
    answer = each.answer;
    asked = 0;
    simulation.Start();
    simulation.Send(Event("go"));
    simulation.Send(Event("up"));
    EXPECT_EQ(Active(), each.active) << static_cast<int>(each.rule);
    EXPECT_EQ(asked, each.asked) << static_cast<int>(each.rule);
  }
}

TEST_F(SimulationTest, ARecordedCasePassesAndNoticesAChange) {
  simulation.Start();
  for (const char* event : {"go", "up", "up", "go"}) simulation.Send(Event(event));
  const ChartTest recorded = TestRun::Record(simulation, "As it was");
  const std::string text = ChartTestFile::TextOf(recorded);
  EXPECT_EQ(text,
            "\ncase As it was\nexpect Off\nsend go\nexpect Dim\nguard 15 true\nsend up\n"
            "expect Bright\nsend up\nexpect ignored\nexpect Bright\nsend go\nexpect Off\n");
  const ChartTestFile read = ChartTestFile::Parse(text);
  ASSERT_EQ(read.cases.size(), 1U);
  EXPECT_TRUE(TestRun(lamp).Execute(read.cases[0]).passed);

  ChartTest other = read.cases[0];
  other.lines[3].holds = false;
  const TestVerdict verdict = TestRun(lamp).Execute(other);
  EXPECT_FALSE(verdict.passed);
  EXPECT_EQ(verdict.line, 8);
  EXPECT_EQ(verdict.reason, "state \"Bright\" is not active; active: \"Dim\" in \"On\"");
}

TEST_F(SimulationTest, TestsSayWhatIsWrongWithThem) {
  const std::pair<const char*, const char*> cases[] = {
      {"case a\nsend stop", "the chart has no event \"stop\""},
      {"case a\nexpect Out", "the chart has no state \"Out\""},
      {"case a\nguard 12 true", "no transition has the guard \"12\""},
      {"case a\nsend go\nexpect not On", "state \"On\" is active; active: \"Dim\" in \"On\""},
      {"case a\nsend go\nexpect ignored", "the event was not ignored"},
      {"case a\nguard level > 3 true\nsend go\nsend up\nexpect Dim",
       "state \"Dim\" is not active; active: \"Bright\" in \"On\""},
      {"case a\nsend go\nsend up",
       "the guard of transition 15 can't be told (nothing here can run it); give it by \"guard 15 "
       "true\" or \"false\""}};
  for (const auto& [text, reason] : cases) {
    const ChartTestFile file = ChartTestFile::Parse(text);
    ASSERT_EQ(file.cases.size(), 1U) << text;
    EXPECT_EQ(TestRun(lamp).Execute(file.cases[0]).reason, reason) << text;
  }
  const ChartTestFile faulty = ChartTestFile::Parse(
      "\xEF\xBB\xBF# tests\nsend go\ncase\ncase b\nset n\nguard 12 maybe\nwait 3\nsend\n");
  const std::vector<std::string> faults{"2: a case comes first: \"case NAME\"",
                                        "3: a case has no name",
                                        "5: \"set n\" needs a value",
                                        "6: a guard is \"true\" or \"false\"",
                                        "7: \"wait\" is not known",
                                        "8: \"send\" needs something behind it"};
  EXPECT_EQ(faulty.faults, faults);
}

}  // namespace

}  // namespace morvane
