#include "tests/generators/TraceCases.h"

#include <algorithm>

namespace morvane {

namespace {

using Sketch = MachineSketch;

std::string Repeat(int times, const std::string& text) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

Sketch Completing() {
  return Sketch()
      .State("P")
      .State("A", "P")
      .Final("P")
      .State("B")
      .State("C")
      .Initial("", "P")
      .Initial("P", "A")
      .On("A", "X", "Final");
}

}  // namespace

std::vector<RigCase> TraceCases() {
  const std::string toFinal =
      "take 101|enter P|take 102|enter A|event X|exit A|take 103|enter PFinal|say asked|";
  const std::string in = "take 101|enter A|event X|";
  return {
      {"Histories",
       Sketch()
           .State("P")
           .State("A", "P")
           .State("Q", "P")
           .State("B", "Q")
           .State("C", "Q")
           .State("R")
           .History("P")
           .History("Q")
           .Initial("", "R")
           .Initial("P", "A")
           .Initial("Q", "B")
           .On("R", "X", "P")
           .On("P", "X", "R")
           .On("A", "Y", "Q")
           .On("B", "Y", "C"),
       "START X Y Y X X START X",
       "take 101|enter R|event X|exit R|take 104|enter P|take 102|enter A|event Y|exit A|take 106|"
       "enter Q|take 103|enter B|event Y|exit B|take 107|enter C|event X|exit C|exit Q|exit P|"
       "take 105|enter R|event X|exit R|take 104|enter P|enter Q|enter C|take 101|enter R|event X|"
       "exit R|take 104|enter P|take 102|enter A"},
      {"CompletionOnce", Completing().On("P", "", "B", "Asked()").On("B", "Y", "C"), "START X Y",
       toFinal + "event Y|ignored Y"},
      {"CompletionByHistory",
       Completing()
           .History("P")
           .On("P", "", "B", "Asked()")
           .On("P", "Y", "B", "", "++n;")
           .On("B", "Y", "P"),
       "START X Y Y",
       toFinal + "event Y|exit PFinal|exit P|take 105|enter B|event Y|exit B|take 106|enter P|"
                 "enter PFinal|say asked|exit PFinal|exit P|take 104|enter B"},
      {"AfterIgnored",
       Sketch()
           .State("A")
           .State("B")
           .Initial("", "A")
           .On("A", "", "B", "Asked()")
           .On("B", "X", "A"),
       "START X", "take 101|enter A|say asked|event X|ignored X|say asked"},
      {"Circle", Sketch().State("A").State("B").Initial("", "A").On("A", "", "B").On("B", "", "A"),
       "START",
       "take 101|enter A" + Repeat(500, "|exit A|take 102|enter B|exit B|take 103|enter A")},
      {"FromWithin",
       Sketch()
           .State("A")
           .State("B", "", "Post();")
           .Initial("", "A")
           .On("A", "X", "B", "", "Post();")
           .On("B", "Ping", "A", "", "Say(\"p\");")
           .On("A", "Ping", "A"),
       "START X",
       in + "exit A|take 102|say posted|enter B|say posted|event Ping|exit B|take 103|say p|"
            "enter A|event Ping|exit A|take 104|enter A"},
      {"RingFull",
       Sketch()
           .State("A")
           .State("B")
           .Initial("", "A")
           .On("A", "X", "A", "", "for (int i = 0; i < 9; ++i) {\n  Post();\n}")
           .On("A", "Ping", "B"),
       "START X",
       in + "exit A|take 102|" + Repeat(8, "say posted|") +
           "say refused|enter A|event Ping|exit A|take 103|enter B" +
           Repeat(7, "|event Ping|ignored Ping")},
      {"RingOfNone",
       Sketch().State("A").Initial("", "A").On("A", "X", "A", "", "Post();").On("A", "Ping", "A"),
       "START X", in + "exit A|take 102|say refused|enter A", 0},
      {"Finished",
       Sketch()
           .State("A")
           .Final()
           .Initial("", "A")
           .On("A", "X", "Final", "n == 0 // really")
           .On("A", "Ping", "A"),
       "X START X X",
       "event X|ignored X|refused|" + in +
           "exit A|take 102|enter Final|event X|ignored X|refused|finished"},
      {"Words",
       Sketch()
           .State("int")
           .State("State")
           .State("None")
           .State("Words")
           .Initial("", "int")
           .On("int", "int", "State")
           .On("State", "double", "None")
           .On("None", "Start", "Words", "", "state = 1;"),
       "START int double Start",
       "take 101|enter int|event int|exit int|take 102|enter State|event double|exit State|"
       "take 103|enter None|event Start|exit None|take 104|enter Words"},
  };
}

RigCase BigTraceCase(int states) {
  RigCase big{"Big", {}, "START E1 E2 E0 E11", {}};
  big.expected =
      "take 101|enter P0|say 0|enter S1|say 1|event E1|exit S1|say 1|take 104|say +|enter S2|say 2|"
      "event E2|exit S2|say 2|take 106|say +|enter S3|say 3|event E0|exit S3|say 3|exit P0|say 0|"
      "take 102|enter P10|say 10|take 123|enter S11|say 11|event E11|exit S11|say 11|exit P10|"
      "say 10|take 125|enter P20|say 20|enter S21|say 21";
  const auto name = [states](int i) {
    return (i % 10 == 0 ? "P" : "S") + std::to_string(i % states);
  };
  for (int i = 0; i < states; ++i) {
    const std::string text = "Say(\"" + std::to_string(i) + "\");";
    big.sketch.State(name(i), i % 10 == 0 ? "" : name(i / 10 * 10), text, text);
    if (i % 10 == 0) big.sketch.History(name(i));
  }
  big.sketch.Initial("", "S1");
  for (int i = 0; i < states; ++i) {
    const std::string event = "E" + std::to_string(i);
    if (i % 10 == 0) {
      big.sketch.On(name(i), event, name(i + 10)).Initial(name(i), name(i + 1), "++n;");
    } else {
      big.sketch.On(name(i), event, name(i / 10 * 10 + i % 10 % 9 + 1), "", "Say(\"+\");");
      big.sketch.On(name(i), event, name(i + 10), "n > 0");
    }
  }
  return big;
}

std::string WithoutTrace(const std::string& lines) {
  std::string left;
  for (std::size_t at = 0; at < lines.size();) {
    const std::size_t end = std::min(lines.find('|', at), lines.size());
    const std::string line = lines.substr(at, end - at);
    const bool stays = line.starts_with("say ") || line == "refused" || line == "finished";
    if (stays) left += (left.empty() ? "" : "|") + line;
    at = end + 1;
  }
  return left;
}

}  // namespace morvane
