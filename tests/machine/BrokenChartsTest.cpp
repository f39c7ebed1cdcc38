#include <gtest/gtest.h>
#include <span>

#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

namespace {

/// What is said of a chart, a line for each problem.
struct Case {
  const char* sketch;
  const char* said;
  const char* line = nullptr;  ///< of the text, if it isn't the one where the object begins
};

std::string Said(const BuiltMachine& built) {
  std::string said;
  for (const Problem& problem : built.problems) {
    const bool isError = problem.severity == Problem::Severity::Error;
    said += (isError ? "error: " : "warning: ") + problem.message + '\n';
  }
  return said;
}

void Check(const Case& c) {
  SCOPED_TRACE(c.sketch);
  const std::string text = ChartSketch(c.sketch);
  const BuiltMachine built = MachineBuilder::FromText(text);
  EXPECT_EQ(Said(built), c.said);
  EXPECT_NE(built.machine.has_value(), HasErrors(built.problems));
  for (const Problem& problem : built.problems) {
    const std::string line = LineOfText(text, problem.line);
    if (c.line != nullptr) {
      EXPECT_EQ(line, c.line);
    } else if (problem.id != 0) {
      const std::string begin = "BEGIN " + problem.message;
      EXPECT_TRUE(begin.starts_with(line)) << line;
    } else {
      EXPECT_EQ(problem.line, 0);
    }
  }
}

/// A chart in which all is well with the first four objects.
void CheckSound(const Case& c) {
  const std::string sketch =
      std::string("initial 1\nstate 2 A\nstate 3 B\narrow 4 1 2\narrow 5 2 3\nmessage 6 5 go\n") +
      c.sketch;
  Check({sketch.c_str(), c.said, c.line});
}

TEST(BrokenCharts, SayWhichObjectsDoNotNest) {
  const Case cases[] = {
      {"state 1 A\nat 0 0 10 10\nstate 2 B\nat 5 5 20 20",
       "error: GenericState 1 \"A\" overlaps GenericState 2 \"B\"\n"},
      {"state 1 A\nat 0 0 10 10\nstate 2 B\nat 0 0 10 10",
       "error: GenericState 1 \"A\" lies exactly on GenericState 2 \"B\"\n"},
      {"state 1 A\nat 0 0 10 10\nstate 2 B\nat 9 2 20 4\nstate 3 C\nat 9 5 20 8",
       "error: GenericState 1 \"A\" overlaps GenericState 2 \"B\"\n"},
      {"initial 1\nat 8 0 12 4\nstate 2 A\nat 10 0 20 10",
       "error: InitialState 1 stands on the border of GenericState 2 \"A\"\n"},
      {"state 1 A\nat 7 7 7 9", "error: GenericState 1 \"A\" has no size\n"},
  };
  for (const Case& c : cases) Check(c);
}

TEST(BrokenCharts, SayWhichReferencesLeadNowhere) {
  const Case cases[] = {
      {"state 1 A\nnote 1", "error: Note 1 has the same id as GenericState 1 \"A\"\n"},
      {"arrow 7 3 99", "error: Transition 7 ends at no state\n"},
      {"arrow 7 0 0", "error: Transition 7 begins and ends at no state\n"},
      {"final 7\narrow 8 3 7\narrow 9 7 3", "error: Transition 9 can't begin at FinalState 7\n"},
      {"arrow 7 3 1", "error: Transition 7 can't end at InitialState 1\n"},
      {"note 7\narrow 8 7 6",
       "error: Transition 8 can't begin at Note 7\nerror: Transition 8 can't end at Mesg 6\n"},
      {"message 7 5 stop", "error: Mesg 7 is a second message of Transition 5 beside Mesg 6\n"},
      {"message 7 99 stop", "warning: Mesg 7 belongs to no transition\n"},
  };
  Check(cases[0]);
  for (const Case& c : std::span(cases).subspan(1)) CheckSound(c);
}

TEST(BrokenCharts, SayWhereTheyDoNotBegin) {
  const Case cases[] = {
      {"", "error: The chart has no InitialState\n"},
      {"state 1 A\n  initial 2\n  state 3 B\narrow 4 2 3",
       "error: The chart has no InitialState\n"},
      {"initial 1\nstate 2 A", "error: InitialState 1 has no transition\n"},
      {"initial 1\nstate 2 A\narrow 3 1 0", "error: Transition 3 ends at no state\n"},
      {"initial 1\ninitial 2\nstate 3 A\narrow 4 1 3\narrow 5 2 3",
       "error: InitialState 2 is a second one in the chart beside InitialState 1\n"},
      {"initial 1\nstate 3 A\narrow 4 1 3\narrow 5 1 3",
       "error: Transition 5 is a second one from InitialState 1 beside Transition 4\n"},
      {"initial 1\nstate 2 A\n  initial 3\n  initial 4\n  state 5 B\narrow 6 1 2\narrow 7 3 5",
       "error: InitialState 4 is a second one in GenericState 2 \"A\" beside InitialState 3\n"},
      {"initial 1\nstate 2 A\n  initial 3\nstate 4 B\narrow 5 1 2\narrow 6 3 4",
       "error: Transition 6 begins at InitialState 3 and has to end inside GenericState 2 \"A\"\n"},
      {"initial 1\nstate 2 A\n  initial 3\n  state 4 B\narrow 5 1 2\narrow 6 3 2",
       "error: Transition 6 begins at InitialState 3 and has to end inside GenericState 2 \"A\"\n"},
      {"initial 1\nstate 2 A\n  state 3 B\narrow 4 1 2",
       "error: GenericState 2 \"A\" has no InitialState inside, but Transition 4 ends at it\n"},
      {"initial 1\nstate 2 A\n  final 3\narrow 4 1 2",
       "error: GenericState 2 \"A\" has no InitialState inside, but Transition 4 ends at it\n"},
      {"initial 1\nstate 2 A\nhistory\n  state 3 B\narrow 4 1 3",
       "error: GenericState 2 \"A\" has no InitialState inside, but it keeps a history\n"},
      {"initial 1\nstate 2 A\nhistory\n  initial 3\n  state 4 B\n    state 5 C\narrow 6 1 2\n"
       "arrow 7 3 5",
       "error: GenericState 4 \"B\" has no InitialState inside, but the history of "
       "GenericState 2 \"A\" leads to it\n"},
      // Nothing ends on A, and a flag on a state that holds nothing says nothing.
      {"initial 1\nstate 2 A\n  state 3 B\n  history\narrow 4 1 3", ""},
  };
  for (const Case& c : cases) Check(c);
}

TEST(BrokenCharts, SayWhichTriggersHaveNoMeaning) {
  const Case cases[] = {
      {"message 7 4 go", "error: Mesg 7 can't have an event on a transition from InitialState 1\n",
       "go"},
      {"message 7 4  | x > 0",
       "error: Mesg 7 can't have a guard on a transition from InitialState 1\n", "x > 0"},
      {"message 7 4 -Edit- |  | Begin();", ""},
      {"arrow 7 3 2\nmessage 8 7 -Edit-\narrow 9 3 2\nmessage 10 9 other",
       "error: Mesg 8 still has \"-Edit-\" for its event\n", "-Edit-"},
      {"arrow 7 3 2\nmessage 8 7 a,,b", "error: Mesg 8 has a comma too many between its events\n",
       "a,,b"},
      {"arrow 7 3 2\nmessage 8 7 a, f(x)",
       "error: Mesg 8 has the event \"f(x)\", which is no identifier\n", "a, f(x)"},
      {"arrow 7 3 2\nmessage 8 7 a, b, a", "warning: Mesg 8 has the event \"a\" twice\n",
       "a, b, a"},
      {"arrow 7 2 2\nmessage 8 7 stop, go",
       "error: Transition 7 leaves GenericState 2 \"A\" on the event \"go\" without a guard, "
       "like Transition 5\n"},
      {"arrow 7 2 2\nmessage 8 7 go | x > 0", ""},
      {"arrow 7 3 2\narrow 8 3 3\nmessage 9 8  |  | f();",
       "error: Transition 8 leaves GenericState 3 \"B\" on no event without a guard, "
       "like Transition 7\n"},
  };
  for (const Case& c : cases) CheckSound(c);
}

TEST(BrokenCharts, SayWhereATextIsLeftOpen) {
  const Case cases[] = {
      {"state 7 C\nentry f();\\ng(;\\nh();\narrow 8 3 7",
       "error: GenericState 7 \"C\" has a \"(\" in its entry text that is never closed\n", "g(;"},
      {"state 7 C\nexit f());\narrow 8 3 7",
       "error: GenericState 7 \"C\" has a \")\" in its exit text that closes nothing\n", "f());"},
      {"arrow 7 3 2\nmessage 8 7 e | s == \"a\\",
       "error: Mesg 8 has a quote in its guard that is never closed\n", "s == \"a\\"},
      {"arrow 7 3 2\nmessage 8 7 e |  | f();\\n/* g();",
       "error: Mesg 8 has a comment in its effect that is never closed\n", "/* g();"},
      {"message 7 4  |  | f(];", "error: Mesg 7 has a \"]\" in its effect that closes nothing\n",
       "f(];"},
  };
  for (const Case& c : cases) CheckSound(c);
}

TEST(BrokenCharts, WarnOfWhatIsNeverUsed) {
  const Case cases[] = {
      {"state 7 C\n  state 8 D\nstate 9 E\narrow 10 7 9",
       "warning: GenericState 7 \"C\" is never entered\n"
       "warning: GenericState 9 \"E\" is never entered\n"},
      {"final 7", "warning: FinalState 7 is never entered\n"},
      {"arrow 7 3 2\narrow 8 3 3\nmessage 9 8 go | x",
       "warning: Transition 8 is never taken, since Transition 7 always leaves the state at "
       "once\n"},
      {"arrow 7 3 2\nmessage 9 7  | x\narrow 8 3 3\nmessage 10 8 go", ""},
      {"state 7 C\n  state 8 D\narrow 9 3 8\narrow 10 7 2",
       "warning: Transition 10 is never taken, since it has no event and GenericState 7 \"C\" no "
       "FinalState directly inside\n"},
      {"state 7 C\n  state 8 D\n  final 11\narrow 9 3 8\narrow 10 7 2\narrow 12 8 11", ""},
      // The history of C leads to E a second time, and then to where E begins.
      {"state 7 C\nhistory\n  initial 8\n  state 9 D\n  state 10 E\n    initial 11\n"
       "    state 12 F\n    state 13 G\narrow 14 3 7\narrow 15 8 9\narrow 16 9 13\n"
       "arrow 17 11 12\narrow 18 7 3\nmessage 19 18 off",
       ""},
      {"state 7 C\n  initial 8\n  state 9 D\n  state 10 E\n    initial 11\n"
       "    state 12 F\n    state 13 G\narrow 14 3 7\narrow 15 8 9\narrow 16 9 13\n"
       "arrow 17 11 12\narrow 18 7 3\nmessage 19 18 off",
       "warning: GenericState 12 \"F\" is never entered\n"},
  };
  for (const Case& c : cases) CheckSound(c);
}

TEST(BrokenCharts, GoByPhasesAndByLines) {
  // An overlap hides what the structure lacks, and a double id hides the overlap.
  Check({"state 1 A\nat 0 0 10 10\nstate 2 B\nat 5 5 20 20\narrow 3 1 9\nnote 2",
         "error: Note 2 has the same id as GenericState 2 \"B\"\n"});
  Check({"initial 1\nstate 2 A\narrow 3 1 2\nmessage 7 99\narrow 8 2 0\narrow 9 0 2",
         "warning: Mesg 7 belongs to no transition\nerror: Transition 8 ends at no state\n"
         "error: Transition 9 begins at no state\n"});
}

TEST(BrokenCharts, ThatCannotBeReadSayWhyInOneLine) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "error: Not a valid Morvane model file\n"},
      {"9999 4 1\n6\n", "error: Invalid File\n"},
      {ChartSketch("state 1 A", "9999 5 0"),
       "error: Version not compatible. Document Version Supported:4.1 Document Being Opened:5.0\n"},
  };
  for (const auto& [text, said] : cases) EXPECT_EQ(Said(MachineBuilder::FromText(text)), said);
  const BuiltMachine missing = MachineBuilder::FromFile("/nowhere/Chart.mrv");
  EXPECT_FALSE(missing.machine);
  ASSERT_EQ(missing.problems.size(), 1U);
  EXPECT_NE(missing.problems.front().message, "");
}

}  // namespace

}  // namespace morvane
