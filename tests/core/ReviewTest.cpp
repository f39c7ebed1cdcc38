#include <random>
#include <regex>

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "review/ChartComparison.h"
#include "review/DescriptionText.h"
#include "review/DiffPicture.h"
#include "review/DiffReport.h"
#include "review/DiffRows.h"
#include "review/LineDiff.h"
#include "surface/LayoutMgr.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

std::string NoteWith(int id, const std::string& text) {
  return NoteRecord(id, {60, 40, 80, 50}, Block(text));
}

std::string ReportOf(const std::string& before, const std::string& after) {
  ChartComparison comparison;
  EXPECT_EQ(comparison.Take(ChartComparison::Side::Before, before), "");
  EXPECT_EQ(comparison.Take(ChartComparison::Side::After, after), "");
  comparison.Compare();
  std::ostringstream out;
  DiffReport::Write(comparison.Diff(), "a", "b", out);
  EXPECT_EQ(comparison.Diff().IsSame(), out.str().empty());
  return out.str();
}

/// A chart with every kind of object.
std::string RichChart() {
  return ChartText(StateRecord(1, {10, 4, 50, 14}, "Off", "a();") + InitialRecord(2, {2, 2, 6, 6}) +
                   "BEGIN FinalState 3\n3 10\n90 90 94 94\n0\nFinalState\n" +
                   StateRecord(4, {10, 24, 50, 34}, "On") + TransitionRecord(5, 1, 4) +
                   MesgRecord(6, 5, {20, 16, 40, 22}, "Push") +
                   NoteRecord(7, {60, 40, 80, 50}, Block("first\r\nsecond")) +
                   LineRecord(8, 7, 7, "2 1 4 1"));
}

TEST(ReviewTest, ReportSaysMeaningFirstAndThenLooks) {
  const std::string state = StateRecord(1, {10, 4, 50, 14}, "Off", "a();");
  const std::string holder = StateRecord(20, {4, 2, 60, 20}, "All");
  const std::string movedHolder = StateRecord(20, {14, 2, 70, 20}, "All");
  const std::string movedState = StateRecord(1, {20, 4, 60, 14}, "Off", "a();");
  const std::string far = StateRecord(30, {100, 100, 120, 120}, "Far");
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {state + far, far + state, ""},
      {state, StateRecord(1, {10, 4, 50, 14}, "On", "b();"),
       "~ GenericState 1 \"On\"\n    name: Off -> On\n    entry:\n      -a();\n      +b();\n"},
      {state, InitialRecord(1, {10, 4, 14, 8}),
       "+ InitialState 1\n- GenericState 1 \"Off\"\n    entry:\n      -a();\n"},
      {state, StateRecord(1, {12, 4, 60, 14}, "Off", "a();"),
       "Looks:\n  GenericState 1 \"Off\": resized from 40 x 10 to 48 x 10, moved by 2, 0\n"},
      {holder + state + far, movedHolder + movedState + far,
       "Looks:\n  GenericState 20 \"All\": moved by 10, 0, with all that stands in it (1)\n"},
      {holder + state, movedHolder + movedState, "Looks:\n  everything moved by 10, 0\n"},
      {holder + state + far, movedHolder + state + far,
       "~ GenericState 1 \"Off\"\n    inside: GenericState 20 \"All\" -> none\n"
       "Looks:\n  GenericState 20 \"All\": moved by 10, 0\n"},
      {state + far + TransitionRecord(5, 1, 30), state + far + TransitionRecord(5, 30, 1),
       "~ Transition 5 (Far -> Off)\n"
       "    from: GenericState 1 \"Off\" -> GenericState 30 \"Far\"\n"
       "    to: GenericState 30 \"Far\" -> GenericState 1 \"Off\"\n"},
      {TransitionRecord(5, 0, 0),
       TransitionRecord(5, 0, 0, "3 1 1 2", "2 22 14 22 16 \n0 22 16 22 23 \n3 22 23 22 24 \n"),
       "Looks:\n  Transition 5 (? -> ?): rerouted\n"},
      {NoteWith(7, "x\x1b\r\ny"), NoteWith(7, "x\x1b\r\ny\r\nz"),
       "~ Note 7 (x^[)\n    text:\n       x^[\n       y\n      +z\n"},
      {state + state, state, "- GenericState 1 \"Off\"\n    entry:\n      -a();\n"}};
  for (const auto& [before, after, expected] : cases) {
    const std::string head = expected.empty() ? "" : "--- a\n+++ b\n";
    EXPECT_EQ(ReportOf(ChartText(before), ChartText(after)), head + expected);
  }
}

TEST(ReviewTest, WhatDoesNotMatterIsNoDifference) {
  const std::string chart = RichChart();
  EXPECT_EQ(ReportOf(chart, chart), "");
  std::string other = chart;
  other.replace(0, other.find("BEGIN DATA"), "9999 4 0\n9\n");
  EXPECT_EQ(ReportOf(chart, other), "");
}

/// Changes each number and each word of a chart in turn.
TEST(ReviewTest, EverythingThatIsStoredMatters) {
  const std::string chart = RichChart();
  const std::size_t begin = chart.find("BEGIN DATA\n") + 11;
  const std::regex piece("[0-9]+|[A-Za-z]+");
  int changed = 0;
  for (std::sregex_iterator
           at(chart.begin() + static_cast<std::ptrdiff_t>(begin), chart.end(), piece),
       end;
       at != end; ++at) {
    std::string other = chart;
    const auto place = begin + static_cast<std::size_t>(at->position());
    const std::string former = at->str();
    const bool isNumber = std::isdigit(static_cast<unsigned char>(former[0])) != 0;
    std::string next = former;
    next.back() = static_cast<char>(isNumber ? (former.back() == '9' ? '0' : former.back() + 1)
                                             : (former.back() ^ 1));
    other.replace(place, former.size(), next);
    LayoutMgr read;
    if (!ModelFile::Parse(other, read).empty()) continue;
    std::string parsed[2];
    for (int i = 0; i < 2; ++i) {
      LayoutMgr model;
      ASSERT_EQ(ModelFile::Parse(i == 0 ? chart : other, model), "");
      model.PlaceWithoutWindow(LayoutMgr::Size::Stored);
      parsed[i] = model.ModelText();
    }
    if (parsed[0] == parsed[1]) continue;
    ++changed;
    EXPECT_NE(ReportOf(chart, other), "") << former << " at " << place << '\n' << parsed[1];
  }
  EXPECT_GT(changed, 60);
}

TEST(ReviewTest, DescriptionIsSortedAndHasAFactALine) {
  std::ostringstream out;
  ChartDescription description;
  ASSERT_EQ(ChartDescription::Read(RichChart(), description), "");
  DescriptionText::Write(description, out);
  const std::string text = out.str();
  for (const char* expected :
       {"\nGenericState 1 \"Off\"\n  entry: a();\n  place: 10,4, 40 x 10\n", "\nFinalState 3\n",
        "\nTransition 5\n  from: GenericState 1 \"Off\"\n  to: GenericState 4 \"On\"\n",
        "\nMesg 6\n  of: Transition 5\n  event: Push\n",
        "\nNote 7\n  text:\n    first\n    second\n", "\nLine 8\n  from: Note 7\n  to: Note 7\n"}) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
  }
  EXPECT_NE(ChartDescription::Read("hello", description), "");
}

std::string TextOf(const std::vector<int>& lines) {
  std::string text;
  for (const int line : lines) text += (text.empty() ? "" : "\n") + std::to_string(line);
  return text;
}

/// The lines without sign that are in the listing of one side, in their order.
std::vector<std::string> Marked(const std::vector<std::string>& listing, char sign) {
  std::vector<std::string> lines;
  for (const std::string& line : listing) {
    if (line[0] == sign) lines.push_back(line.substr(1));
  }
  return lines;
}

TEST(LineDiffTest, ListsTheFewestLinesOfRandomTexts) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::vector<int> before(random() % 12);
    std::vector<int> after(random() % 12);
    for (int& line : before) line = static_cast<int>(random() % 4);
    for (int& line : after) line = static_cast<int>(random() % 4);
    // The longest row that both share, by the plain rule.
    std::vector<std::vector<std::size_t>> common(before.size() + 1,
                                                 std::vector<std::size_t>(after.size() + 1));
    for (std::size_t i = 0; i < before.size(); ++i) {
      for (std::size_t j = 0; j < after.size(); ++j) {
        common[i + 1][j + 1] =
            before[i] == after[j] ? common[i][j] + 1 : std::max(common[i][j + 1], common[i + 1][j]);
      }
    }
    const auto listing = LineDiff::Listing(TextOf(before), TextOf(after));
    const std::size_t shared = common.back().back();
    EXPECT_EQ(Marked(listing, '-').size(), before.size() - shared);
    EXPECT_EQ(Marked(listing, '+').size(), after.size() - shared);
  }
}

TEST(LineDiffTest, LeavesFarLinesOutAndGivesUpOnLongTexts) {
  EXPECT_EQ(LineDiff::Listing("1\n2\n3\n4\n5\n6\n7", "1\n2\n3\n4\n5\n6\nx"),
            (std::vector<std::string>{"@@ -5 +5 @@", " 5", " 6", "-7", "+x"}));
  std::vector<int> before(100'000);
  std::vector<int> after(100'000);
  for (std::size_t i = 0; i < before.size(); ++i) {
    before[i] = static_cast<int>(i * 2);
    after[i] = static_cast<int>(i % 7 == 0 ? i * 2 : i * 2 + 1);
  }
  const auto listing = LineDiff::Listing(TextOf(before), TextOf(after));
  EXPECT_EQ(Marked(listing, '-').size(), before.size() - 1) << "but for the common beginning";
  EXPECT_EQ(Marked(listing, '+').size(), after.size() - 1);
}

TEST(DiffPictureTest, PaintsEachChangeInItsInk) {
  ChartComparison comparison;
  const std::string kept = StateRecord(1, {10, 4, 50, 14}, "Kept");
  ASSERT_EQ(comparison.Take(ChartComparison::Side::Before,
                            ChartText(kept + StateRecord(2, {10, 20, 50, 30}, "Gone") +
                                      StateRecord(3, {60, 4, 90, 14}, "Moved"))),
            "");
  ASSERT_EQ(comparison.Take(ChartComparison::Side::After,
                            ChartText(kept + StateRecord(3, {60, 40, 90, 50}, "Moved") +
                                      StateRecord(4, {100, 4, 140, 14}, "New"))),
            "");
  comparison.Compare();
  ASSERT_EQ(comparison.Place(), "");
  const DiffPicture picture(comparison.Before(), comparison.After(), comparison.Diff());
  NullDC reference;
  CMetaFileDC dc(reference);
  picture.Paint(dc);
  const Metafile drawn = dc.Close();
  std::map<std::string, COLORREF> inks;
  std::set<PenStyle> styles;
  for (const Metafile::Record& record : drawn.records) {
    if (record.kind == Metafile::Kind::TextOut) inks[record.text] = record.textColor;
    if (record.kind == Metafile::Kind::RoundRect) styles.insert(record.pen.style);
  }
  EXPECT_EQ(std::set({inks["Kept"], inks["Gone"], inks["Moved"], inks["New"]}).size(), 4);
  EXPECT_GT(GetGValue(inks["New"]), GetRValue(inks["New"]));
  EXPECT_GT(GetRValue(inks["Gone"]), GetGValue(inks["Gone"]));
  EXPECT_EQ(styles, std::set({PenStyle::Solid, PenStyle::Dash, PenStyle::Dot}));
  for (const char* text : {"added", "removed", "former place", "unchanged", "+", "-"}) {
    EXPECT_TRUE(inks.contains(text)) << text;
  }
  EXPECT_FALSE(inks.contains("changed")) << "the legend tells of what there is";
  const std::vector<DiffRow> rows = RowsOf(comparison.Diff());
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[2].summary, "moved by 0, 36");
  EXPECT_EQ(picture.PlaceOf(*rows[2].change), (RECT{360, 240, 540, 300}));
}

}  // namespace

}  // namespace morvane
