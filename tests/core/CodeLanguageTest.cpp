#include "model/CodeLanguage.h"
#include "model/ModelProperties.h"
#include "tests/support/ChartTest.h"

namespace morvane {

TEST(CodeLanguageTest, TheChartTellsThenTheGeneratorThatWasUsedLast) {
  MemoryProfile profile;
  const UseService<Profile> use(profile);
  ModelProperties chart;
  EXPECT_EQ(CodeLanguage::Of(nullptr), Syntax::Cpp);
  EXPECT_EQ(CodeLanguage::Of(&chart), Syntax::Cpp);
  CodeLanguage::NoteUsed(Syntax::JavaScript);
  EXPECT_EQ(CodeLanguage::Of(&chart), Syntax::JavaScript);
  chart.JavaPackage = "example";
  EXPECT_EQ(CodeLanguage::Of(&chart), Syntax::Java);
  chart.CDeclarations = "int a;";
  EXPECT_EQ(CodeLanguage::Of(&chart), Syntax::JavaScript) << "two languages tell nothing";
  profile.WriteString("Code", "Language", "unheard of");
  EXPECT_EQ(CodeLanguage::Of(nullptr), Syntax::Cpp);
}

}  // namespace morvane
