#include "model/ModelStream.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace morvane {

namespace {

/// The text that the reader throws; empty when it reads the chart.
std::string ReasonOf(const std::string& text) {
  try {
    LoadChart(text);
    return {};
  } catch (const std::string& reason) {
    return reason;
  }
}

std::string Rewritten(const std::string& text) { return LoadChart(text)->ModelText(); }

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  return text.replace(text.find(what), what.size(), with);
}

TEST(ModelText, AFailureIsNamed) {
  const std::string small = SmallChart();
  const std::string noModel = "Not a valid Morvane model file";
  const std::string tooNew =
      "Version not compatible.\nDocument Version Supported:4.1\nDocument Being Opened:";
  const std::pair<std::string, std::string> texts[] = {
      {"", noModel},
      {"PK\x03\x04 stuff", noModel},
      {"9999 7 x", tooNew + "7.0"},
      {"9999 4 1\n", "Invalid File"},
      {"9999 x", "Invalid File"},
      {"9999 -1 0", "Invalid or Corrupt File"},
      {small.substr(0, small.find("END DATA")), "Invalid File"},
      {small.substr(0, small.size() - 9), "Invalid or Corrupt File"}};
  for (const auto& [text, reason] : texts) EXPECT_EQ(ReasonOf(text), reason) << text;
  const struct {
    std::string what, with, reason;
  } changes[] = {
      {"9999", "9998", noModel},
      {"9999 4 1", "9999 4 2", tooNew + "4.2"},
      {"9999 4 1", "9999 -1 9", "Invalid or Corrupt File"},
      {"9999 4 1", "9999 0 -1", "Invalid or Corrupt File"},
      {"9999 4 1", "9999 -32768 1", "Invalid or Corrupt File"},
      {"9999 4 1", "9999 1 -11", "Invalid or Corrupt File"},
      {"\n6\n", "\nx\n", "Invalid File"},
      {"BEGIN DATA", "BEGIN DATUM", "Invalid File"},
      {"BEGIN Note", "\nBEGIN Note", "Invalid File"},
      {"BEGIN Note", "BEGIN Sheet", "Invalid File"},
      {"3 22 23 22 24 \n", "", "Invalid File"},
      {"0 22 15", "0 22 zz", "Invalid File"},
      {"0 22 15", "99999 22 15", "Invalid File"},
      {"10\nTEXTBEGIN\nTwo", "11\nTEXTBEGIN\nTwo", "Invalid or Corrupt File"},
      {"lines\nTEXTEND", "lines\nTEXTSTOP", "Invalid or Corrupt File"},
      {"17 24 27 32", "17 24 ?? 32", "Invalid or Corrupt File"},
      {"\n1\nState\n", "\n2\nState\n", "Invalid or Corrupt File"},
  };
  for (const auto& c : changes) {
    EXPECT_EQ(ReasonOf(Replaced(small, c.what, c.with)), c.reason) << c.with;
  }
  // Cut off anywhere; all of the last line but its line end is a whole text.
  for (std::size_t length = 0; length + 1 < small.size(); ++length) {
    EXPECT_NE(ReasonOf(small.substr(0, length)), "") << length;
  }
}

TEST(ModelText, ReadsBackToItselfWhateverIsPassedOver) {
  EXPECT_EQ(LayoutMgr().ModelText(), ChartText(""));
  const std::string small = SmallChart();
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"BEGIN DATA", "some line\n\nmore\nBEGIN DATA"},
      {"BEGIN Note", "RESERVED 1 2\nBEGIN Note"},
      {"\nBEGIN DATA", " and a remark\nBEGIN DATA"},
      {"\n1\nInitialState", " 9 9 9\n1\nInitialState"},
      {"BEGIN Note 104", "BEGIN Note 999"}};  // the second id of a record counts
  for (const auto& [what, with] : cases) EXPECT_EQ(Rewritten(Replaced(small, what, with)), small);
}

TEST(ModelText, OddValuesOfAFile) {
  // The zoom is the nearest one that a view can have.
  const auto zoomed = [](const char* zoom) { return ChartText("", "9999 4 1", zoom); };
  EXPECT_EQ(Rewritten(zoomed("-9")), zoomed("2"));
  EXPECT_EQ(Rewritten(zoomed("400")), zoomed("13"));
  // A rectangle stands upright, a layer is the one of the class, a negative colour wraps around.
  EXPECT_EQ(Rewritten(ChartText(InitialRecord(101, {24, 14, 20, 10}))),
            ChartText(InitialRecord(101, {20, 10, 24, 14})));
  const std::string note = ChartText(NoteRecord(104, {40, 10, 52, 16}, Block("")));
  EXPECT_EQ(Rewritten(Replaced(Replaced(note, "104 50", "104 11"), "8454143", "-1")),
            Replaced(note, "8454143", "4294967295"));
}

TEST(ModelText, TextsKeepEveryByte) {
  const std::string texts[] = {"\r\n\r\n",
                               "lone \r return",
                               std::string("nul \0 byte", 10),
                               "\x1A control \x7F",
                               "latin \xE4\xF6, utf-8 \xC3\xA4, broken \xC3",
                               std::string(1000, 'x') + "\r\n" + std::string(254, 'y'),
                               "TEXTBEGIN\r\nBEGIN DATA",
                               "a\r\nTEXTEND\r\n"};
  for (const std::string& text : texts) {
    const std::string chart = ChartText(NoteRecord(104, {40, 10, 52, 16}, Block(text)));
    EXPECT_EQ(Find<Note>(*LoadChart(chart), 104)->GetText().GetText(), text);
    EXPECT_EQ(Rewritten(chart), chart);
  }
}

TEST(ModelText, OlderVersionsLackWhatCameLater) {
  const std::string mesg =
      "BEGIN Mesg 8\n8 20\n45 20 55 30\n0\n1 1 11 12\n0\n" + Block("all of it");
  const std::string cpp =
      "Model\nCls\nCls.h\nns\n0\nINCLUDE BEGIN\n\nINCLUDE END\n"
      "0\nDECL BEGIN\n\nDECL END\nMe\n0\nDESC BEGIN\n\nDESC END\n";
  const std::string java = cpp +
                           "0\nINCLUDE BEGIN\n\nINCLUDE END\n0\nDECL BEGIN\n\nDECL END\n"
                           "Jv\npkg\n0\nDECL BEGIN\n\nDECL END\n";
  const std::string cSharp = java + "Cs\nnsp\n0\nDECL BEGIN\n\nDECL END\n";
  const struct {
    std::string header, records, properties, javaClass, cSharpClass;
  } cases[] = {{"9999 2 0", mesg, cpp, "Context", "Context"},
               {"9999 3 0", "", java, "Jv", "Context"},
               {"9999 3 1", "", cSharp, "Jv", "Cs"}};
  for (const auto& c : cases) {
    const auto chart =
        LoadChart(c.header + "\n6\nBEGIN DATA\n" + c.records + "END DATA\n" + c.properties);
    EXPECT_EQ(chart->GetProperties().CppNamespace, "ns");
    EXPECT_EQ(chart->GetProperties().JavaClassName, c.javaClass);
    EXPECT_EQ(chart->GetProperties().CSharpClassName, c.cSharpClass);
    EXPECT_TRUE(chart->ModelText().starts_with("9999 4 1\n"));
    if (c.records.empty()) continue;
    EXPECT_EQ(Find<Mesg>(*chart, 8)->GetText().GetEvent(), "");
    EXPECT_EQ(Find<Mesg>(*chart, 8)->GetText().GetEffect(), "all of it");
  }
}

TEST(ModelText, OfTwoObjectsWithOneIdTheLaterKeepsItWhenTheOtherGoes) {
  const auto chart =
      LoadChart(ChartText(StateRecord(2, {40, 10, 60, 30}) + StateRecord(2, {70, 10, 90, 30})));
  delete chart->GetModel().Objects().front();
  EXPECT_EQ(FindShape(*chart, 2), chart->GetModel().Objects().front());
}

TEST(ModelFile, LineEndsOnDisk) {
  EXPECT_EQ(ModelFile::FromDisk("a\r\nb\nc\r\r\n\rd\r"), "a\nb\nc\r\n\rd\r");
  EXPECT_EQ(ModelFile::ToDisk("a\nb\r\n"), "a\r\nb\r\r\n");
}

}  // namespace

}  // namespace morvane
