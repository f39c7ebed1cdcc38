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

std::vector<RigCase> Moves() {
  return {
      {"Self",
       Sketch()
           .State("A", "", "Say(\"in\");", "Say(\"out\");")
           .Initial("", "A")
           .On("A", "X", "A", "", "Say(\"x\");"),
       "START X", "take 101|enter A|say in|event X|exit A|say out|take 102|say x|enter A|say in"},
      {"BorderToInner",
       Sketch().State("P").State("A", "P").State("B", "P").Initial("", "P").Initial("P", "A").On(
           "P", "X", "B"),
       "START X X",
       "take 101|enter P|take 102|enter A|event X|exit A|exit P|take 103|enter P|enter B|"
       "event X|exit B|exit P|take 103|enter P|enter B"},
      {"InnerToAncestor",
       Sketch()
           .State("P", "", "", "Say(\"p\");")
           .State("Q", "P")
           .State("A", "Q", "", "Say(\"a\");")
           .Initial("", "A")
           .On("A", "X", "P")
           .Initial("P", "Q")
           .Initial("Q", "A", "Say(\"q\");"),
       "START X",
       "take 101|enter P|enter Q|enter A|event X|exit A|say a|exit Q|exit P|say p|take 102|"
       "enter P|take 103|enter Q|take 104|say q|enter A"},
      {"DeepInitial",
       Sketch()
           .State("P", "", "Say(\"p\");")
           .State("Q", "P", "Say(\"q\");")
           .State("A", "Q")
           .Initial("", "P", "Say(\"one\");")
           .Initial("P", "A", "Say(\"two\");"),
       "START", "take 101|say one|enter P|say p|take 102|say two|enter Q|say q|enter A"},
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
  };
}

Sketch Completing() {
  return Sketch()
      .State("P")
      .State("A", "P")
      .Final("F", "P")
      .State("B")
      .State("C")
      .Initial("", "P")
      .Initial("P", "A")
      .On("A", "X", "F");
}

std::vector<RigCase> WithoutEvent() {
  const std::string toFinal =
      "take 101|enter P|take 102|enter A|event X|exit A|take 103|enter F|say asked|";
  return {
      {"CompletionElse", Completing().On("P", "", "C").On("P", "", "B", "Asked()"), "START X",
       toFinal + "exit F|exit P|take 104|enter C"},
      {"CompletionOnce", Completing().On("P", "", "B", "Asked()").On("B", "Y", "C"), "START X Y",
       toFinal + "event Y|ignored Y"},
      {"CompletionByHistory",
       Completing()
           .History("P")
           .On("P", "", "B", "Asked()")
           .On("P", "Y", "B", "", "++n;")
           .On("B", "Y", "P"),
       "START X Y Y",
       toFinal + "event Y|exit F|exit P|take 105|enter B|event Y|exit B|take 106|enter P|enter F|"
                 "say asked|exit F|exit P|take 104|enter B"},
      {"Chain",
       Sketch()
           .State("A", "", "++n;")
           .State("B")
           .State("C")
           .Initial("", "A")
           .On("A", "", "B", "n > 1")
           .On("B", "", "C")
           .On("A", "X", "A"),
       "START X X",
       "take 101|enter A|event X|exit A|take 104|enter A|exit A|take 102|enter B|exit B|take 103|"
       "enter C|event X|ignored X"},
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
  };
}

std::vector<RigCase> Events() {
  const std::string in = "take 101|enter A|event X|";
  return {
      {"GuardOrder",
       Sketch()
           .State("A")
           .State("B")
           .State("C")
           .Initial("", "A")
           .On("A", "X", "C")
           .On("A", "X Y", "B", "n == 1")
           .On("A", "X Y", "B", "Asked() // really"),
       "START Y X",
       "take 101|enter A|event Y|say asked|ignored Y|event X|say asked|exit A|"
       "take 102|enter C"},
      {"Outwards",
       Sketch()
           .State("P")
           .State("A", "P")
           .State("B")
           .Initial("", "A")
           .On("A", "X", "A", "Asked()")
           .On("P", "X", "B"),
       "START X", "take 101|enter P|enter A|event X|say asked|exit A|exit P|take 103|enter B"},
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
           .Final("End", "", "Post();")
           .Initial("", "A")
           .On("A", "X", "End")
           .On("A", "Ping", "A"),
       "X START X X",
       "event X|ignored X|refused|" + in +
           "exit A|take 102|enter End|say posted|event X|ignored X|refused|finished"},
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
      {"Lone", Sketch().State("A").Initial("", "A"), "START", "take 101|enter A"},
  };
}

/// Leaves more states than are listed, from one that is simple.
RigCase Deep() {
  RigCase deep{"Deep", {}, "START X", "take 101"};
  std::string exits;
  for (int i = 0; i < 12; ++i) {
    const std::string name = "S" + std::to_string(i);
    deep.sketch.State(name, i == 0 ? "" : "S" + std::to_string(i - 1), "", i == 3 ? "++n;" : "");
    deep.expected += "|enter " + name;
    exits = "|exit " + name + exits;
  }
  deep.sketch.State("Out").Initial("", "S11").On("S11", "X", "Out");
  deep.expected += "|event X" + exits + "|take 102|enter Out";
  return deep;
}

}  // namespace

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

std::vector<RigCase> TraceCases() {
  std::vector<RigCase> all = Moves();
  for (const std::vector<RigCase>& more : {WithoutEvent(), Events(), {Deep()}}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
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
