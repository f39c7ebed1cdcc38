#include "drawing/Utf16.h"
#include "exchange/ScxmlImport.h"
#include "machine/Machine.h"
#include "machine/MachineBuilder.h"
#include "shell/ImportChart.h"
#include "tests/support/ChartTest.h"
#include "tests/support/NestedLoop.h"
#include "tests/support/OpenCharts.h"
#include "tests/support/SaveDialogs.h"

namespace morvane {

namespace {

std::string Document(const std::string& inner) {
  return "<scxml xmlns=\"http://www.w3.org/2005/07/scxml\" version=\"1.0\">\n" + inner + "</scxml>";
}

/// The states and transitions of a machine, one after the other.
std::string Told(const Machine& machine) {
  const auto name = [&machine](int state) {
    return state == MachineState::kChart ? "chart" : machine.states[state].name;
  };
  std::string text;
  for (const MachineState& state : machine.states) {
    text += name(state.parent) + '/' + state.name + (state.history ? "(H)" : "");
    if (!state.entry.IsEmpty()) text += " entry:" + state.entry.text;
    if (!state.exit.IsEmpty()) text += " exit:" + state.exit.text;
    text += '\n';
  }
  for (const MachineTransition& transition : machine.transitions) {
    text += (transition.isInitial ? "*" : "") + name(transition.source) + "->" +
            name(transition.target);
    for (const int event : transition.events) text += ' ' + machine.events[event].name;
    if (!transition.guard.IsEmpty()) text += " [" + transition.guard.text + ']';
    if (!transition.effect.IsEmpty()) text += " /" + transition.effect.text;
    text += '\n';
  }
  return text;
}

std::string Remarks(const ImportResult& result) { return RemarkLines("f", result.remarks); }

/// What a document becomes; what the chart of it has wrong instead, or why there is none.
std::string Meaning(const ImportResult& result) {
  if (!result.failure.empty()) return result.failure;
  const BuiltMachine built = MachineBuilder::FromText(result.modelText);
  if (!built.machine) return FormatProblem("chart", built.problems.front());
  return Told(*built.machine);
}

TEST(ScxmlImport, DocumentsBecomeCharts) {
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"the first state begins", "<state id='a'/>", "chart/a\n*chart->a\n"},
      {"texts and guards",
       "<state id='a'><onentry><script>\n    x();\n      y();\n</script></onentry>"
       "<onexit><assign location='n' expr='n + 1'/></onexit>"
       "<transition event='e f' cond='n &lt; 3' target='a'><raise event='g'/></transition></state>",
       "chart/a entry:x();\n  y(); exit:n = n + 1;\n*chart->a\na->a e f [n < 3] /raise(\"g\");\n"},
      {"conditions in texts",
       "<state id='a'><onentry><if cond='n'><log expr='n'/><else/><foreach array='q'/></if>"
       "</onentry></state>",
       "chart/a entry:if (n) {\n  log(n);\n} else {\n  /* <foreach array=\"q\" /> */\n}\n"
       "*chart->a\n"},
      {"initial attributes and elements",
       "<state id='a' initial='c'><state id='b'/><state id='c'><initial><transition target='d'>"
       "<script>i();</script></transition></initial><state id='d'/></state></state>",
       "chart/a\na/b\na/c\nc/d\n*chart->a\n*a->c\n*c->d /i();\n"},
      {"completion",
       "<state id='a'><final id='z'/><transition event='done.state.a' target='b'/></state>"
       "<state id='b'/>",
       "chart/a\na/aFinal\nchart/b\n*chart->a\n*a->aFinal\na->b\n"},
      {"history",
       "<state id='a'><initial><transition target='h'/></initial>"
       "<history id='h'><transition target='c'/></history><state id='b'/><state id='c'/></state>",
       "chart/a(H)\na/b\na/c\n*chart->a\n*a->c\n"},
      {"a history that is entered alone",
       "<state id='a'><transition event='e' target='h'/></state><state id='p'>"
       "<history id='h'><transition target='c'/></history><state id='b'/><state id='c'/></state>",
       "chart/a\nchart/p(H)\np/b\np/c\n*chart->a\n*p->c\na->p e\n"},
      {"what is more special counts, too",
       "<state id='a'><transition event='e' target='b'/></state>"
       "<state id='b'><transition event='e.x' target='a'/></state>",
       "chart/a\nchart/b\n*chart->a\na->b e e_x\nb->a e_x\n"},
      {"no target is no way",
       "<state id='a'><transition event='e'><script>x();</script></transition></state>",
       "chart/a\n*chart->a\na->a e /x();\n"},
      {"a first transition that acts",
       "<state id='i'><transition target='a'><script>x();</script></transition></state>"
       "<state id='a'/>",
       "chart/i\nchart/a\n*chart->i\ni->a /x();\n"}};
  for (const auto& [what, document, meaning] : cases) {
    const ImportResult result = ImportScxml(Document(document), "f.scxml");
    EXPECT_EQ(Meaning(result), meaning) << what;
    EXPECT_EQ(Remarks(result), "") << what;
  }
}

TEST(ScxmlImport, WhatHasNoCounterpartIsSaidAndKept) {
  const std::pair<std::string, std::string> cases[] = {
      {"<datamodel><data id='n'/></datamodel>", "<datamodel> has no counterpart in a chart"},
      {"<script>s()</script>", "<script> has no counterpart in a chart"},
      {"<state id='x'><invoke src='s'/></state>", "<invoke> has no counterpart in a chart"},
      {"<parallel id='x'/>",
       "Regions that run side by side: the first one begins, the others stand beside it"},
      {"<state id='x'><transition event='e' target='nowhere'/></state>",
       "There is no state \"nowhere\" for a transition to end at"},
      {"<state id='x'><transition event='e' target='a x'/></state>",
       "Of several targets, \"a\" is taken"},
      {"<state id='x'><onexit/><state id='y'/><transition event='e'/></state>",
       "A transition of a chart has a target"},
      {"<state id='a'/>",
       "The id \"a\" is given a second time, first in line 2, which is what transitions lead to"},
      {"<state id='x'><transition event='e' target='a'/><transition event='e' target='x'/></state>",
       "Earlier transitions leave nothing for this one"},
      {"<state id='x'><transition event='done.state.a' target='a'/></state>",
       "Only the state itself can tell that it is complete: done.state.a"},
      {"<final id='x'><onentry><script>s()</script></onentry></final>",
       "A final state of a chart has no texts"},
      {"<state id='x'><q:y xmlns:q='urn:q'/></state>",
       "Elements of other namespaces are passed over: 1"}};
  for (const auto& [document, remark] : cases) {
    const ImportResult result = ImportScxml(Document("<state id='a'/>\n" + document), "f.scxml");
    EXPECT_EQ(Remarks(result), "f:3: warning: " + remark + '\n');
    EXPECT_NE(result.modelText.find("3: " + remark.substr(0, 10)), std::string::npos) << remark;
    EXPECT_TRUE(MachineBuilder::FromText(result.modelText).machine) << remark;
  }
}

TEST(ScxmlImport, BadFilesSayWhere) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "The file is empty"},
      {" \n", "The file is empty"},
      {"hello", "line 1: There is no element"},
      {"<html/>", "line 1: This is no SCXML: the element <html> stands where <scxml> should"},
      {"<scxml/>", "There are no states"},
      {"<scxml>\n<state id='a'>\n</scxml>",
       "line 3: The end of an element does not match its beginning"},
      {"<scxml>\n<state id=a/></scxml>", "line 2: An attribute cannot be read"},
      {"<scxml>\n\n<!-- ", "line 3: A comment does not end"},
      {"<!DOCTYPE scxml [\n<!ENTITY a 'b'>]>\n<scxml/>",
       "line 2: Entities of the file's own are not read"},
      {"<scxml>\n<state id='&who;'/></scxml>", "line 2: The entity \"who\" is not known"}};
  for (const auto& [document, reason] : cases) {
    const ImportResult result = ImportScxml(document, "f.scxml");
    EXPECT_EQ(result.failure, reason);
    EXPECT_EQ(result.modelText, "");
  }
}

TEST(ScxmlImport, EncodingsAndPrefixesDoNotMatter) {
  const std::string plain =
      "<s:scxml xmlns:s='http://www.w3.org/2005/07/scxml'><s:state id='a'><s:onentry><s:script>"
      "\xC3\xB6()</s:script></s:onentry></s:state></s:scxml>";
  std::string little = "\xFF\xFE";
  std::string big;
  for (const char16_t unit : ToUtf16(plain)) {
    little += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    big += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
  }
  for (const std::string& bytes : {plain, "\xEF\xBB\xBF" + plain, little, big}) {
    EXPECT_EQ(Meaning(ImportScxml(bytes, "f.scxml")), "chart/a entry:\xC3\xB6()\n*chart->a\n");
  }
}

TEST(ScxmlImport, DepthHasNoLimit) {
  constexpr int depth = 10'000;
  std::string states;
  std::string ifs;
  for (int i = 0; i < depth; ++i) {
    states += "<state id='s" + std::to_string(i) + "'>";
    ifs += "<if cond='c'>";
  }
  for (int i = 0; i < depth; ++i) states += "</state>";
  for (int i = 0; i < depth; ++i) ifs += "</if>";
  const ImportResult deep = ImportScxml(Document(states), "f.scxml");
  const BuiltMachine built = MachineBuilder::FromText(deep.modelText);
  ASSERT_TRUE(built.machine) << deep.failure;
  EXPECT_EQ(built.machine->states.back().depth, depth - 1);
  const std::string text = "<state id='a'><onentry>" + ifs + "</onentry></state>";
  EXPECT_EQ(ImportScxml(Document(text), "f.scxml").failure, "");
}

/// A user who picks a file to open.
class PickedFile : public SaveDialogs {
 public:
  explicit PickedFile(std::string file) : file(std::move(file)) {}
  std::optional<std::string> AskOpenPath(const FileFilter&) override {
    NestedLoop::Run();
    return file;
  }

 private:
  std::string file;
};

TEST(ScxmlImport, TheCommandOpensANewChartAndSaysWhatItLacks) {
  const TempFolder folder;
  OpenCharts charts(folder.Path("store"));
  ScriptedMessageBoxes boxes;
  {
    PickedFile dialogs(folder.Write("bad.scxml", "<scxml>"));
    boxes.Expect("line 1: The end of an element does not match its beginning");
    ImportChart(charts.manager);
    EXPECT_TRUE(charts.manager.Documents().empty());
  }
  PickedFile dialogs(folder.Write("f.scxml", Document("<state id='a'><invoke/></state>")));
  boxes.Expect("f.scxml:2: warning: <invoke> has no counterpart in a chart");
  ImportChart(charts.manager);
  ASSERT_EQ(charts.manager.Documents().size(), 1U);
  CDocument& document = *charts.manager.Documents().front();
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(document.GetPathName(), "");
  EXPECT_EQ(OpenCharts::ViewOf(document).GetProperties().ModelName, "f");
}

}  // namespace

}  // namespace morvane
