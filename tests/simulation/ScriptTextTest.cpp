#include <gtest/gtest.h>

#include "simulation/ScriptText.h"

namespace morvane {

namespace {

TEST(ScriptTextTest, PutsTheWordsOfOtherLanguagesIntoThoseOfScripts) {
  const std::pair<const char*, const char*> cases[] = {
      {"n = n + 1; // ::", "n = n + 1; // ::"},
      {"Dispatch(found ? Event::Right : Event::Wrong);",
       "Dispatch(found ? Event.Right : Event.Wrong);"},
      {"Door_Dispatch(self, Door_Event_Open);", "Dispatch(self, Event.Open);"},
      {"self->n = 10u + 0x1F + 1.5f;", "self.n = 10 + 0x1F + 1.5;"},
      {"const unsigned int i = 0;", "var   i = 0;"},
      {"for (int i = 0; i < 3; ++i) p = nullptr;", "for (var i = 0; i < 3; ++i) p = null;"},
      {"s = \"int a->b::c\";", "s = \"int a->b::c\";"},
      {"'unclosed", "'unclosed"},
      {"/* unclosed", "/* unclosed"},
      {"a\\", "a\\"}};
  for (const auto& [code, script] : cases) EXPECT_EQ(ScriptText(code).Program(), script);
}

TEST(ScriptTextTest, TellsWhatATextUses) {
  const ScriptText text(
      "if (ready && door.open) { count += step; }\nmotor.left.Start(speed);\nLog(count);\n"
      "self->hits++; obj.member = 1; x = Read();");
  EXPECT_EQ(text.Assigned(), (std::set<std::string>{"count", "hits", "x"}));
  EXPECT_EQ(text.Read(), (std::set<std::string>{"count", "ready", "speed", "step"}));
  const std::map<std::string, std::string> called{{"Log", "Log"}, {"motor", "motor.left.Start"}};
  EXPECT_EQ(text.Called(), called);
}

TEST(ScriptTextTest, FindsDeclaredVariables) {
  const auto declared = ScriptText::DeclaredIn(
      "private:\n  int count = 5;\n  unsigned long all;\n  bool on = false;\n  Motor motor;\n"
      "  int f(int x) { return x; }\n  double d = 2.5f; // int no;\n  string s = \"a;b\";");
  std::string all;
  for (const auto& each : declared) all += each.name + '=' + each.value + ' ';
  EXPECT_EQ(all, "count=5 all= on=false d=2.5 s=\"a;b\" ");
}

}  // namespace

}  // namespace morvane
