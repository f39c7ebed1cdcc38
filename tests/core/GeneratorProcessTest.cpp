#include "platform/Process.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

using Words = std::vector<std::string>;

TEST(GeneratorProcessTest, SplitsArgumentsAtBlanks) {
  const std::pair<const char*, Words> cases[] = {
      {"", {}},
      {"   ", {}},
      {" -d  -g\t/a/b.mrv ", {"-d", "-g", "/a/b.mrv"}},
      {"\"/My charts/lift.mrv\" x", {"/My charts/lift.mrv", "x"}},
      {"a\"b c\"d", {"ab cd"}},
      {"\"\" x", {"", "x"}},
      {"\"open to the end", {"open to the end"}},
      {"C:\\a\\\"b\"", {"C:\\a\\b"}}};
  for (const auto& [text, words] : cases) EXPECT_EQ(SplitArguments(text), words) << text;
}

}  // namespace

}  // namespace morvane
