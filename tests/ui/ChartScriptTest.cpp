#include <gtest/gtest.h>

#include "platform/qt/QtScriptEngine.h"
#include "simulation/Simulation.h"
#include "tests/simulation/SketchedMachine.h"

namespace morvane {

namespace {

/// Texts in the real engine.
class ChartScriptTest : public testing::Test {
 protected:
  static std::string Variables(const ChartScript& script) { return script.Variables(); }
  /// A text says behind another one, in the words of an engine, that a name is unknown.
  static testing::AssertionResult IsUnknown(const std::string& text, const std::string& before,
                                            const std::string& name) {
    const std::pair<const char*, const char*> words[] = {{"", " is not defined"},
                                                         {"identifier '", "' undefined"}};
    for (const auto& [left, right] : words) {
      if (text == before + "ReferenceError: " + left + name + right) {
        return testing::AssertionSuccess();
      }
    }
    return testing::AssertionFailure() << text;
  }

  const Machine machine = SketchedMachine(R"(
initial 1
state 2 A
state 3 B
arrow 11 1 2
message 21 11 -Edit- |  | n = 5; motor.Start(n);
arrow 12 2 3
message 22 12 go | n > limit | self->n = n * 2; Dispatch(Event::again);
arrow 13 3 2
message 23 13 again | n < 100 | n += 1
)");
};

TEST_F(ChartScriptTest, RunsTextsAndTellsWhatItLeavesOut) {
  ChartScript script(machine, std::make_unique<QtScriptEngine>());
  script.Begin();
  EXPECT_EQ(script.Variables(), R"({"n":0})");
  EXPECT_EQ(script.Inputs(), std::set<std::string>{"limit"});
  const auto act = [&](const char* code) { return script.Act({code, 0}).note; };
  EXPECT_EQ(act("n = 3; motor.Start(n); Log(1)"), "left out: Log(), motor.Start()");
  EXPECT_EQ(script.Variables(), R"({"n":3})");
  EXPECT_EQ(act("n = ;").substr(0, 8), "not run:");
  EXPECT_EQ(act("n = 4; throw 'up'; n = 5;"), "not run: up");
  EXPECT_TRUE(IsUnknown(act("n = 1; n = Read();"), "not run: ", "Read"));
  const auto holds = [&](const char* guard) {
    std::string fault;
    const auto result = script.Test({guard, 0}, fault);
    return result ? std::string(*result ? "yes" : "no") : fault;
  };
  EXPECT_EQ(holds("n == 1 // so"), "yes");
  EXPECT_TRUE(IsUnknown(holds("n > limit"), "", "limit"));
  EXPECT_EQ(script.Assign("limit", "0.5"), "");
  EXPECT_EQ(holds("n > limit"), "yes");
  EXPECT_NE(script.Assign("limit", "= 1"), "");
  EXPECT_EQ(holds("n = 7, false"), "no") << "a guard may have effects";
  script.SetVariables(R"({"n":3})");
  EXPECT_EQ(holds("n == 3 && typeof limit == 'undefined'"), "yes");
}

TEST_F(ChartScriptTest, OutlivesWhatNeverEndsOrEatsAllMemory) {
  ChartScript script(machine, std::make_unique<QtScriptEngine>());
  script.Begin();
  script.Act({"n = 8", 0});
  for (const char* code :
       {"while (true) {}", "var a = 'x'; while (true) a += a + a;", "(function f() { f(); })()",
        "'a'.repeat(1 << 30).split('')", "__morvane = 1; JSON.stringify = null; eval = null"}) {
    EXPECT_EQ(script.Act({code, 0}).note.substr(0, 7), "not run") << code;
    script.SetVariables("{}");
    EXPECT_EQ(script.Act({"n = 9", 0}).note.substr(0, 7),
              std::string(code).starts_with("__") ? "not run" : "")
        << code;
  }
}

TEST_F(ChartScriptTest, ASimulationGoesBackWithItsVariablesAndHandlesWhatItsTextsSend) {
  Simulation simulation(machine, std::make_unique<QtScriptEngine>(), nullptr);
  simulation.SetUnknown(Simulation::Guards::False);
  simulation.Start();
  EXPECT_EQ(simulation.NoteOf(0), "left out: motor.Start()");
  const int go = *simulation.Format().FindEvent("go");
  EXPECT_FALSE(simulation.Choices().front().isAccepted) << "the limit is unknown";
  EXPECT_EQ(simulation.Assign("limit", "1"), "");
  EXPECT_EQ(simulation.Choices().front().event, go);
  EXPECT_TRUE(simulation.Choices().front().isAccepted);
  const std::size_t start = simulation.Place();
  simulation.Send(go);
  std::string trace;
  for (std::size_t i = start; i < simulation.History().Size(); ++i) {
    trace += simulation.TextOf(i) + "; ";
  }
  EXPECT_EQ(trace, "event go; exit A; take 12; enter B; event again; exit B; take 13; enter A; ");
  EXPECT_EQ(simulation.Variables(), R"({"limit":1,"n":11})");
  simulation.GoTo(start + 3);
  EXPECT_EQ(simulation.Variables(), R"({"limit":1,"n":10})");
  EXPECT_EQ(simulation.Queue(), std::vector<int>{*simulation.Format().FindEvent("again")});
  simulation.GoTo(start);
  simulation.Send(go);
  EXPECT_EQ(simulation.Variables(), R"({"limit":1,"n":11})") << "not twice";
}

}  // namespace

}  // namespace morvane
