#include "fuzz/FuzzTarget.h"
#include "machine/MachineBuilder.h"
#include "simulation/ChartTest.h"
#include "simulation/Coverage.h"
#include "simulation/Replay.h"
#include "simulation/ScriptText.h"
#include "simulation/TestRun.h"
#include "tests/support/Charts.h"

namespace morvane {

// A trace, a text of a chart, and a file of tests: whatever stands there, it is taken or refused.

namespace {

const Machine& SmallMachine() {
  static const BuiltMachine built = MachineBuilder::FromText(SmallChart());
  Require(built.machine.has_value(), "the small chart is no machine");
  return *built.machine;
}

void Follow(const std::string& text) {
  Replay replay(SmallMachine());
  const std::size_t half = text.size() / 2;
  replay.Feed(std::string_view(text).substr(0, half));
  replay.CatchUp();
  replay.Feed(std::string_view(text).substr(half));
  replay.Finish();
  Require(replay.Where().has_value() != replay.PartingText().empty(), "a parting without a text");
  Coverage coverage(SmallMachine());
  coverage.Add(replay.History(), replay.History().Size());
  Require(coverage.Whole().Percent() <= 100, "more than everything");
  replay.Continue();
  for (std::size_t place = 0; place <= replay.History().Size(); ++place) {
    (void)replay.History().ActiveStatesAt(place);
    if (place > 0) Require(!replay.TextOf(place - 1).empty(), "a line without a text");
  }
  // All at once it is the same.
  Replay whole(SmallMachine());
  whole.Feed(text);
  whole.Finish();
  Require(whole.PartingText() == replay.PartingText(), "it matters how a trace comes");
}

void Test(const std::string& text) {
  const ChartTestFile file = ChartTestFile::Parse(text);
  for (const ChartTest& test : file.cases) {
    const TestVerdict verdict = TestRun(SmallMachine()).Execute(test);
    Require(verdict.passed == verdict.reason.empty(), "a failure without a reason");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = TextOf(data, size);
  Follow(text);
  Test(text);
  const ScriptText script(text);
  Require(script.Program().size() <= 2 * text.size() + 16, "a text grows");
  (void)ScriptText::DeclaredIn(text);
  return 0;
}

}  // namespace morvane
