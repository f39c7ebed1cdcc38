#include <gtest/gtest.h>

#include "simulation/Coverage.h"
#include "simulation/Replay.h"
#include "tests/simulation/SketchedMachine.h"

namespace morvane {

namespace {

constexpr const char* kStart = "take 11\nenter Off\n";
constexpr const char* kGo = "event go\nexit Off\ntake 12\nenter On\ntake 14\nenter Dim\n";
constexpr const char* kUp = "event up\nexit Dim\ntake 15\nenter Bright\n";

std::string Lines(const Run& run) {
  std::string text;
  for (std::size_t i = 0; i < run.History().Size(); ++i) text += run.TextOf(i) + '\n';
  return text;
}

TEST(ReplayTest, TellsWhereTraceAndChartPart) {
  const Machine lamp = Lamp();
  const std::string start = kStart;
  const std::string go = kGo;
  const std::string up = kUp;
  struct Case {
    std::string trace;
    std::string parting;
  };
  const Case cases[] = {
      {start + go + up + "event down\nexit Bright\ntake 16\nenter Dim\n", ""},
      {start + go + "event up\nignored up\n", ""},  // the guard didn't hold
      {start + start + go, ""},                     // the program was started twice
      {"Lamp 2.1\n" + start + "take care\nstep 1\n\n" + go,
       "line 4: \"take care\", which this chart doesn't have"},
      {start + "  event go\t\r\nexit Off\r\ntake 12\r\n", ""},  // stopped on its way
      {start + "event go\nignored go\n", "line 4: \"ignored go\", but the chart has \"exit Off\""},
      {start + "event up\nignored up\nevent go\nexit Off\ntake 15\n",
       "line 7: \"take 15\", but the chart has \"take 12\""},
      {start + "event go\nexit Off\nevent up\n",
       "line 5: \"event up\", but the chart has \"take 12\""},
      {start + go + "enter Bright\n",
       "line 9: \"enter Bright\", but the chart does nothing more here"},
      {start + "event stop\n", "line 3: \"event stop\", which this chart doesn't have"},
      {go, "line 2: \"exit Off\", but the chart has \"ignored go\""}};
  for (const Case& each : cases) {
    // However the text comes in pieces.
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, each.trace.size()}) {
      Replay replay(lamp);
      for (std::size_t at = 0; at < each.trace.size(); at += piece) {
        replay.Feed(std::string_view(each.trace).substr(at, piece));
        if (piece == 7) replay.CatchUp();
      }
      replay.Finish();
      EXPECT_EQ(replay.PartingText(), each.parting) << each.trace << "by " << piece;
    }
  }
}

TEST(ReplayTest, GoesOnWithTheTraceBehindThePartingAndShowsEachPlace) {
  const Machine lamp = Lamp();
  Replay replay(lamp);
  const std::string trace = std::string(kStart) + "event go\nexit Off\ntake 13\nenter Off\n" + kGo;
  replay.Feed(trace);
  replay.Finish();
  EXPECT_EQ(Lines(replay), trace);
  ASSERT_TRUE(replay.Where());
  EXPECT_EQ(replay.Where()->place, 4U);
  replay.Continue();
  EXPECT_EQ(replay.Place(), 4U) << "the place is worth a stop";
  replay.GoTo(100);
  EXPECT_EQ(lamp.states[static_cast<std::size_t>(replay.Active())].name, "Dim");
  EXPECT_EQ(replay.History().ActiveStatesAt(replay.Place()).size(), 2U);
  EXPECT_EQ(lamp.transitions[static_cast<std::size_t>(replay.Taken())].id, 14);
  replay.GoTo(4);
  EXPECT_EQ(replay.Active(), MachineState::kChart) << "between two states";
  EXPECT_EQ(replay.Taken(), MachineState::kNone) << "of this step";
  replay.ToggleBreakpoint(12);
  replay.Continue();
  EXPECT_EQ(replay.TextOf(replay.Place() - 1), "take 12");
  replay.Continue();
  EXPECT_TRUE(replay.IsAtEnd());
}

TEST(ReplayTest, TakesWhatIsNoTraceInBoundedMemory) {
  const Machine lamp = Lamp();
  Replay replay(lamp);
  const std::string endless(1 << 16, 'x');
  for (int i = 0; i < 100; ++i) replay.Feed(endless);
  replay.Feed(std::string("\nevent \n\0event go\nignored go again\n", 34));
  replay.Finish();
  EXPECT_EQ(replay.History().Size(), 0U);
  EXPECT_FALSE(replay.Where());
}

TEST(CoverageTest, TellsWhatWasNeverReached) {
  const Machine lamp = Lamp();
  Coverage coverage(lamp);
  Replay replay(lamp);
  replay.Feed(std::string(kStart) + "event never\nignored never\n" + kGo);
  replay.Finish();
  coverage.Add(replay.History(), replay.History().Size());
  const std::string report = coverage.Report("Lamp.mrv");
  EXPECT_EQ(report.substr(0, report.find('\n')),
            "Lamp.mrv: states 3 of 4 (75 %), transitions 3 of 6 (50 %), events 1 of 4 (25 %)");
  for (const char* line :
       {"state 6 \"Bright\" was never entered\n", "transition 13 was never taken\n",
        "Lamp.mrv: event \"never\" was never handled\n",
        "Lamp.mrv: event \"up\" was never sent\n"}) {
    EXPECT_NE(report.find(line), std::string::npos) << line << report;
  }
  EXPECT_EQ(coverage.Whole().Percent(), 60);
}

}  // namespace

}  // namespace morvane
