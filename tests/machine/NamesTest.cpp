#include <gtest/gtest.h>

#include "machine/Identifier.h"
#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

namespace {

TEST(Names, AreCleaned) {
  const std::pair<const char*, const char*> cases[] = {
      {"Listen", "Listen"},
      {"Warte auf Öl", "Warte_auf_Oel"},
      {"äöüß ÄÖÜ", "aeoeuess_AeOeUe"},
      {"é ø å ñ ç Œ Ł ž ſ", "e_oe_aa_n_c_Oe_L_z_s"},
      {"cafe\xCC\x81", "cafe"},
      {"__a--b..c__", "a_b_c"},
      {"3rd", "S3rd"},
      {"_Init", "Init"},
      {"x × y ÷ z", "x_y_z"},
      {"Старт 1", "S1"},
      {"→ !", ""},
      {"", ""},
  };
  for (const auto& [written, name] : cases) {
    EXPECT_EQ(Identifier::Clean(written, 'S'), name) << written;
    EXPECT_EQ(Identifier::IsSound(written), written == std::string(name) && *written != 0)
        << written;
  }
  for (const char* good : {"a", "Key Up", "key-up", "a.b", "Größe", "Старт", "3"}) {
    EXPECT_TRUE(Identifier::IsAlmostSound(good)) << good;
  }
  for (const char* bad : {"", "f()", "a+b", "a/b", "€", "a→b", "x×y", "\"a\"", "a;"}) {
    EXPECT_FALSE(Identifier::IsAlmostSound(bad)) << bad;
  }
}

/// The names of the states or events in order, and behind them the warnings.
struct Case {
  const char* sketch;
  const char* states;
  const char* events;
  const char* warnings;
};

void Check(const Case& c) {
  SCOPED_TRACE(c.sketch);
  const BuiltMachine built = MachineBuilder::FromText(ChartSketch(c.sketch));
  std::string states;
  std::string events;
  std::string warnings;
  for (const Problem& problem : built.problems) warnings += problem.message + '\n';
  EXPECT_EQ(warnings, c.warnings);
  ASSERT_TRUE(built.machine);
  for (const MachineState& state : built.machine->states) states += state.name + ' ';
  for (const MachineEvent& event : built.machine->events) events += event.name + ' ';
  EXPECT_EQ(states, c.states);
  EXPECT_EQ(events, c.events);
}

TEST(Names, OfStatesDifferAlsoWithoutCase) {
  const Case cases[] = {
      {"initial 1\nstate 2 Busy\n  state 3 Idle\nstate 4 Idle\narrow 5 1 3\narrow 6 3 4",
       "Busy Busy_Idle Idle ", "", "GenericState 3 \"Idle\" is named Busy_Idle in code\n"},
      {"initial 1\nstate 2 Öl\nstate 3 Oel\narrow 5 1 2\narrow 6 2 3", "Oel_2 Oel ", "",
       "GenericState 2 \"Öl\" is named Oel_2 in code\n"},
      {"initial 1\nstate 2 \xD6l\narrow 5 1 2", "Oel ", "",
       "GenericState 2 \"Öl\" is named Oel in code\n"},
      {"initial 1\nstate 2 Listen\nstate 3 LISTEN\narrow 5 1 2\narrow 6 2 3", "Listen LISTEN_3 ",
       "", "GenericState 3 \"LISTEN\" is named LISTEN_3 in code\n"},
      {"initial 1\nstate 2 A\n  state 3 B\n  state 4 B\nstate 5 A_B\nstate 6 B\narrow 7 1 3\n"
       "arrow 8 3 4\narrow 9 4 5\narrow 10 5 6",
       "A A_B_3 A_B_4 A_B B ", "",
       "GenericState 3 \"B\" is named A_B_3 in code\nGenericState 4 \"B\" is named A_B_4 in "
       "code\n"},
      {"initial 1\nstate 105 !\narrow 3 1 105", "State105 ", "",
       "GenericState 105 \"!\" is named State105 in code\n"},
      {"initial 1\nstate -7 !\narrow 3 1 -7", "State4294967289 ", "",
       "GenericState -7 \"!\" is named State4294967289 in code\n"},
      {"initial 1\nstate 2 A\n  state 3 B\n  final 4\n  final 5\nfinal 6\nstate 7 final\n"
       "arrow 8 1 3\narrow 9 3 4\nmessage 16 9 w\narrow 10 2 5\nmessage 11 10 x\narrow 12 3 "
       "6\nmessage 13 12 y\n"
       "arrow 14 3 7\nmessage 15 14 z",
       "A B AFinal AFinal_5 Final_6 final ", "w x y z ", ""},
  };
  for (const Case& c : cases) Check(c);
}

TEST(Names, OfEventsDifferAlsoWithoutCase) {
  const std::string sound = "initial 1\nstate 2 A\narrow 3 1 2\narrow 4 2 2\nmessage 5 4 ";
  const auto check = [&sound](const char* events, const char* names, const char* warnings) {
    const std::string sketch = sound + events;
    Check({sketch.c_str(), "A ", names, warnings});
  };
  check(" Open ,\tclose", "Open close ", "");
  check("Key Up, Key-Up, Key_Up", "Key_Up_2 Key_Up_3 Key_Up ",
        "Mesg 5 has the event \"Key Up\", named Key_Up_2 in code\n"
        "Mesg 5 has the event \"Key-Up\", named Key_Up_3 in code\n");
  check("Open, open", "Open open_2 ", "Mesg 5 has the event \"open\", named open_2 in code\n");
  check("3, Старт", "E3 Event5 ",
        "Mesg 5 has the event \"3\", named E3 in code\n"
        "Mesg 5 has the event \"Старт\", named Event5 in code\n");
}

}  // namespace

}  // namespace morvane
