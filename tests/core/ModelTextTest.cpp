#include "persistence/ModelStream.h"
#include "tests/support/ChartTest.h"

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

const std::string kTooNew =
    "Version not compatible.\nDocument Version Supported:4.1\nDocument Being Opened:";

TEST(ModelText, ReadsBackToItself) {
  EXPECT_EQ(LoadChart(SmallChart())->ModelText(), SmallChart());
  EXPECT_EQ(LoadChart(ChartText(""))->ModelText(), ChartText(""));
  EXPECT_EQ(LayoutMgr().ModelText(), ChartText(""));
}

TEST(ModelText, AFailureIsNamed) {
  const std::string small = SmallChart();
  const auto replaced = [&](const std::string& what, const std::string& with) {
    std::string text = small;
    text.replace(text.find(what), what.size(), with);
    return text;
  };
  const struct {
    const char* name;
    std::string text;
    std::string reason;
  } cases[] = {
      {"empty", "", "Not a valid Morvane model file"},
      {"another program's file", "PK\x03\x04 stuff", "Not a valid Morvane model file"},
      {"another magic", replaced("9999", "9998"), "Not a valid Morvane model file"},
      {"magic beyond 16 bits", replaced("9999", "75535"), "Not a valid Morvane model file"},
      {"minor too new", replaced("9999 4 1", "9999 4 2"), kTooNew + "4.2"},
      {"major too new", replaced("9999 4 1", "9999 5 0"), kTooNew + "5.0"},
      {"major too new, no minor", "9999 7 x", kTooNew + "7.0"},
      {"only a header", "9999 4 1\n", "Invalid File"},
      {"no number for the zoom", replaced("\n6\n", "\nx\n"), "Invalid File"},
      {"no data section", replaced("BEGIN DATA", "BEGIN DATUM"), "Invalid File"},
      {"no end of the data", small.substr(0, small.find("END DATA")), "Invalid File"},
      {"blank line between records", replaced("BEGIN Note", "\nBEGIN Note"), "Invalid File"},
      {"unknown keyword", replaced("BEGIN Note", "BEGIN Sheet"), "Invalid File"},
      {"no tail of a chain", replaced("3 22 23 22 24 \n", ""), "Invalid File"},
      {"garbled link", replaced("0 22 15", "0 22 zz"), "Invalid File"},
      {"kind of a link beyond 16 bits", replaced("0 22 15", "99999 22 15"), "Invalid File"},
      {"wrong length of a block", replaced("10\nTEXTBEGIN\nTwo", "11\nTEXTBEGIN\nTwo"),
       "Invalid or Corrupt File"},
      {"wrong begin tag", replaced("TEXTBEGIN\nTwo", "TEXTBEGIM\nTwo"), "Invalid or Corrupt File"},
      {"no end tag", replaced("lines\nTEXTEND", "lines\nTEXTSTOP"), "Invalid or Corrupt File"},
      {"garbled rectangle", replaced("17 24 27 32", "17 24 ?? 32"), "Invalid or Corrupt File"},
      {"a flag that is none", replaced("\n1\nState\n", "\n2\nState\n"), "Invalid or Corrupt File"},
      {"cut off in the properties", small.substr(0, small.size() - 9), "Invalid or Corrupt File"},
  };
  for (const auto& c : cases) EXPECT_EQ(ReasonOf(c.text), c.reason) << c.name;
}

TEST(ModelText, CutOffAnywhereItFailsCleanly) {
  const std::string small = SmallChart();
  // All of the last line but its line end is a whole text.
  for (std::size_t length = 0; length + 1 < small.size(); ++length) {
    EXPECT_NE(ReasonOf(small.substr(0, length)), "") << length;
  }
}

TEST(ModelText, WhatIsPassedOver) {
  const std::string small = SmallChart();
  const auto with = [&](const std::string& before, const std::string& extra) {
    std::string text = small;
    text.insert(text.find(before), extra);
    return text;
  };
  for (const std::string& text :
       {with("BEGIN DATA", "some line\n\nmore\n"), with("BEGIN Note", "RESERVED 1 2\n"),
        with("\nBEGIN DATA", " and a remark"), with("\n1\nInitialState", " 9 9 9")}) {
    EXPECT_EQ(LoadChart(text)->ModelText(), small);
  }
}

TEST(ModelText, TheSecondIdOfARecordCounts) {
  std::string text = SmallChart();
  text.replace(text.find("BEGIN Note 104"), 14, "BEGIN Note 999");
  EXPECT_EQ(LoadChart(text)->ModelText(), SmallChart());
}

TEST(ModelText, OddValuesOfAFile) {
  const auto rewritten = [](const std::string& records, const std::string& zoom = "6") {
    return LoadChart(ChartText(records, "9999 4 1", zoom))->ModelText();
  };
  // The zoom is the nearest one that a view can have.
  EXPECT_EQ(rewritten("", "0"), ChartText("", "9999 4 1", "2"));
  EXPECT_EQ(rewritten("", "-9"), ChartText("", "9999 4 1", "2"));
  EXPECT_EQ(rewritten("", "400"), ChartText("", "9999 4 1", "13"));
  // A rectangle stands upright, a layer is the one of the class, a negative colour wraps around.
  EXPECT_EQ(rewritten(InitialRecord(101, {24, 14, 20, 10})),
            ChartText(InitialRecord(101, {20, 10, 24, 14})));
  std::string note = NoteRecord(104, {40, 10, 52, 16}, Block(""));
  std::string odd = note;
  odd.replace(odd.find("104 50"), 6, "104 11");
  odd.replace(odd.find("8454143"), 7, "-1");
  note.replace(note.find("8454143"), 7, "4294967295");
  EXPECT_EQ(rewritten(odd), ChartText(note));
}

TEST(ModelText, TextsKeepEveryByte) {
  const std::string texts[] = {"",
                               "a\r\n",
                               "\r\n\r\n",
                               "lone \r return",
                               std::string("nul \0 byte", 10),
                               "\x1A control \x7F",
                               "latin \xE4\xF6, utf-8 \xC3\xA4, broken \xC3",
                               std::string(1000, 'x') + "\r\n" + std::string(254, 'y'),
                               "TEXTBEGIN\r\nBEGIN DATA",
                               "TEXTEND",
                               "a\r\nTEXTEND\r\n"};
  for (const std::string& text : texts) {
    const std::string chart = ChartText(NoteRecord(104, {40, 10, 52, 16}, Block(text)));
    const auto loaded = LoadChart(chart);
    EXPECT_EQ(Find<Note>(*loaded, 104)->GetText().GetText(), text);
    EXPECT_EQ(loaded->ModelText(), chart);
  }
}

TEST(ModelText, OlderVersions) {
  const std::string mesg2 =
      "BEGIN Mesg 8\n8 20\n45 20 55 30\n0\n1 1 11 12\n0\n" + Block("all of it");
  const std::string part1 =
      "Model\nCls\nCls.h\nns\n0\nINCLUDE BEGIN\n\nINCLUDE END\n"
      "0\nDECL BEGIN\n\nDECL END\nMe\n0\nDESC BEGIN\n\nDESC END\n";
  const auto chart = LoadChart("9999 2 0\n6\nBEGIN DATA\n" + mesg2 + "END DATA\n" + part1);
  const EventEditorBox& text = Find<Mesg>(*chart, 8)->GetText();
  EXPECT_EQ(text.GetEvent(), "");
  EXPECT_EQ(text.GetGuard(), "");
  EXPECT_EQ(text.GetEffect(), "all of it");
  EXPECT_EQ(chart->GetProperties().CppNamespace, "ns");
  EXPECT_EQ(chart->GetProperties().JavaClassName, "Context");
  EXPECT_EQ(chart->ModelText().substr(0, 9), "9999 4 1\n");

  const std::string part2 = part1 +
                            "0\nINCLUDE BEGIN\n\nINCLUDE END\n0\nDECL BEGIN\n\nDECL END\n"
                            "Jv\npkg\n0\nDECL BEGIN\n\nDECL END\n";
  const auto version30 = LoadChart("9999 3 0\n6\nBEGIN DATA\nEND DATA\n" + part2);
  EXPECT_EQ(version30->GetProperties().JavaClassName, "Jv");
  EXPECT_EQ(version30->GetProperties().CSharpClassName, "Context");
  const std::string part3 = part2 + "Cs\nnsp\n0\nDECL BEGIN\n\nDECL END\n";
  const auto version31 = LoadChart("9999 3 1\n6\nBEGIN DATA\nEND DATA\n" + part3);
  EXPECT_EQ(version31->GetProperties().CSharpClassName, "Cs");
}

TEST(ModelText, DamagedReferencesLeaveFreeEnds) {
  const std::string links = "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n";
  // A source that can't start a transition, a target that is a note, one that isn't there.
  const std::string records = NoteRecord(1, {40, 10, 52, 16}, Block("")) +
                              TransitionRecord(2, 1, 99, "3 1 1 2", links) +
                              TransitionRecord(3, 2, 3, "3 1 1 2", links) +
                              LineRecord(4, 2, 77, "1 1 1 1") + MesgRecord(5, 1, {0, 0, 10, 6});
  const auto chart = LoadChart(ChartText(records));
  EXPECT_EQ(Find<Transition>(*chart, 2)->GetSource(), nullptr);
  EXPECT_EQ(Find<Transition>(*chart, 3)->GetTarget(), nullptr);
  EXPECT_EQ(Find<Line>(*chart, 4)->GetStartShape(), nullptr);
  EXPECT_EQ(Find<Mesg>(*chart, 5)->GetTransition(), nullptr);
  // The message keeps the id that it read.
  EXPECT_NE(chart->ModelText().find("1 1 16777215 65280\n1\ne\n"), std::string::npos);
}

TEST(ModelText, OfTwoObjectsWithOneIdTheLastHasIt) {
  auto chart = LoadChart(ChartText(StateRecord(5, {10, 10, 20, 20}, "first") +
                                   StateRecord(5, {30, 30, 40, 40}, "last")));
  EXPECT_EQ(Find<State>(*chart, 5)->GetName(), "last");
  // Deleting the one without the id leaves the other one alone.
  delete chart->GetModel().Objects().front();
  ASSERT_EQ(chart->GetModel().Objects().size(), 1U);
  EXPECT_EQ(Find<State>(*chart, 5)->GetName(), "last");
}

TEST(ModelText, ExtremeCoordinates) {
  const int low = std::numeric_limits<int>::min();
  const int high = std::numeric_limits<int>::max();
  const std::string wide = StateRecord(high, {low, low, high, high}) +
                           StateRecord(2, {high - 1, high - 1, high, high}) +
                           TransitionRecord(3, high, 2, "1 1 3 3",
                                            "2 -2147483648 0 2147483647 9 \n"
                                            "1 2147483647 9 -2147483648 9 \n"
                                            "0 -2147483648 9 -2147483648 2147483647 \n"
                                            "3 0 0 2147483647 -2147483648 \n");
  auto chart = LoadChart(ChartText(wide));
  const std::string text = chart->ModelText();
  EXPECT_EQ(LoadChart(text)->ModelText(), text);
  // Everything that asks for geometry has to bear it.
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  chart->GetChartExtent(right, bottom);
  EXPECT_EQ(right, high);
  chart->GetModel().ObjectAt({5, 5});
  chart->GetModel().SelectAll();
  POINT offset{high, low};
  chart->GetSelection().Broadcast(BROADCAST_MOVE, &offset, nullptr);
  EXPECT_NE(chart->ModelText(), "");
}

TEST(ModelFile, LineEndsOnDisk) {
  EXPECT_EQ(ModelFile::FromDisk("a\r\nb\nc\r\r\n\rd\r"), "a\nb\nc\r\n\rd\r");
  EXPECT_EQ(ModelFile::ToDisk("a\nb\r\n"), "a\r\nb\r\r\n");
}

TEST(ModelStream, NumbersAreReadAsTheStandardStreamsReadThem) {
  const char* const inputs[] = {
      "12 ",    "-12 ",   "+7",    "",          "x",   "-",      "32767",  "32768",
      "-32768", "-32769", "65535", "65536",     "-1 ", "-65535", "-65536", "99999999999999999999",
      "0x10",   "007",    "  5,",  "2147483648"};
  for (const char* input : inputs) {
    const auto compare = [&](auto value) {
      auto wanted = value;
      std::istringstream theirs(input);
      std::istringstream ours(input);
      theirs >> wanted;
      ModelStream stream(ours);
      stream >> value;
      EXPECT_EQ(value, wanted) << input;
      EXPECT_EQ(ours.rdstate(), theirs.rdstate()) << input;
    };
    compare(std::int16_t{0});
    compare(std::uint16_t{0});
    compare(std::int32_t{0});
    compare(std::uint32_t{0});
  }
}

}  // namespace
