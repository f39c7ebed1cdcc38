#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "drawing/TextDirection.h"
#include "drawing/TextLayout.h"
#include "drawing/Utf16.h"
#include "surface/ObjectNames.h"
#include "surface/ReadingOrder.h"
#include "tests/support/OpenCharts.h"

namespace morvane {

namespace {

using Answer = DocumentNotice::Answer;

constexpr const char* kOld =
    "gr\xF6\xDF"
    "e";
constexpr const char* kNew =
    "gr\xC3\xB6\xC3\x9F"
    "e";

/// A chart with a state of that name and that entry text.
std::string Named(const std::string& name, const std::string& entry) {
  LayoutMgr chart;
  EXPECT_EQ(ModelFile::Parse(ChartText(StateRecord(1, {10, 10, 40, 40}, name)), chart), "");
  chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
  auto& state = dynamic_cast<GenericState&>(*chart.GetModel().Objects().front());
  state.GetEntryExit().SetTexts(entry, "");
  return chart.ModelText();
}

class EncodingTest : public testing::Test {
 protected:
  void Open(const std::string& text) {
    file = std::to_string(++opened) + ".mrv";
    document = &charts.Open(folder.Write(file, text));
  }
  LayoutMgr& View() { return OpenCharts::ViewOf(*document); }
  GenericState& State() {
    return dynamic_cast<GenericState&>(*View().GetModel().Objects().front());
  }
  const std::string& Entry() { return State().GetEntryExit().GetEntry(); }
  void Enter(const std::string& entry) {
    State().GetEntryExit().SetTexts(entry, "");
    View().TakeSnapshot();
  }
  /// What the bar says; 0 for nothing.
  unsigned Bar() const {
    for (const unsigned id : {IDS_OLD_ENCODING, IDS_MIXED_ENCODING, IDS_BECAME_UTF8}) {
      for (const DocumentNotice& notice : document->Notices()) {
        if (notice.text == LoadText(id)) return id;
      }
    }
    return 0;
  }

  TempFolder folder;
  ScriptedMessageBoxes boxes;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  OpenCharts charts{folder.Path("state")};
  int opened = 0;
  std::string file;
  CMorvaneDoc* document = nullptr;
};

}  // namespace

TEST_F(EncodingTest, EachPieceIsDecodedByItself) {
  const std::string others[] = {kOld, kNew};
  for (const std::string& name : others) {
    for (const std::string& entry : others) {
      Open(Named(name, entry));
      EXPECT_EQ(State().GetEntryExit().ShownText(), std::string("[Entry]\n") + kNew + "\n[Exit]\n");
      const ReadingOrder order(View().GetModel());
      EXPECT_EQ(NameOfObject(State(), order), std::string("State ") + kNew);
      EXPECT_EQ(TextOfObject(State()), std::string("On entry: ") + kNew);
    }
  }
}

TEST_F(EncodingTest, WhatNobodyEditedStaysAndWhatIsEditedIsNeverAMixture) {
  const std::string both[][2] = {{kOld, kOld}, {kOld, kNew}, {kNew, kOld}};
  for (const auto& [name, entry] : both) {
    const std::string bytes = ModelFile::ToDisk(Named(name, entry));
    Open(bytes);
    EXPECT_EQ(Bar(), name == entry ? IDS_OLD_ENCODING : IDS_MIXED_ENCODING);
    View().TakeSnapshot();
    ASSERT_TRUE(document->DoFileSave());
    EXPECT_EQ(folder.Read(file), bytes);

    Enter("\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(Entry(), "\xE4\x80");
    EXPECT_EQ(State().GetName(), kOld);
    document->OnNoticeAnswered(Answer::CloseEncoding);
    EXPECT_EQ(Bar(), 0U);

    const std::string before = View().ModelText();
    Enter("\xCE\xB1");
    EXPECT_EQ(Entry(), "\xCE\xB1");
    EXPECT_EQ(State().GetName(), kNew);
    EXPECT_EQ(Bar(), IDS_BECAME_UTF8);
    View().OnCommand(ID_EDIT_UNDO);
    EXPECT_EQ(View().ModelText(), before);
    EXPECT_EQ(Bar(), IDS_OLD_ENCODING);
  }
}

TEST_F(EncodingTest, TheBarConvertsOrIsKeptAway) {
  Open(ModelFile::ToDisk(Named(kOld, kNew)));
  document->OnNoticeAnswered(Answer::Convert);
  EXPECT_TRUE(IsValidUtf8(View().ModelText()));
  EXPECT_EQ(State().GetName(), kNew);
  EXPECT_EQ(Bar(), 0U);
  EXPECT_TRUE(document->IsModified());
  View().OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(State().GetName(), kOld);
  EXPECT_EQ(Bar(), IDS_MIXED_ENCODING);
  document->OnNoticeAnswered(Answer::CloseEncoding);
  Enter("\xC3\xA4");
  EXPECT_EQ(Bar(), IDS_OLD_ENCODING) << "something was put into Windows-1252";
  document->OnNoticeAnswered(Answer::KeepEncoding);
  Enter("\xC3\xA4\xC3\xA4");
  EXPECT_EQ(Bar(), 0U);
}

TEST_F(EncodingTest, ATextOfAnotherChartBecomesUtf8) {
  Open(ModelFile::ToDisk(Named(kNew, "")));
  Enter(kOld);
  EXPECT_EQ(Entry(), kNew);
  EXPECT_EQ(Bar(), 0U);
}

TEST_F(EncodingTest, AByteOrderMarkIsDropped) {
  const std::string text = Named(kNew, "");
  Open("\xEF\xBB\xBF" + ModelFile::ToDisk(text));
  EXPECT_EQ(View().ModelText(), text);
  EXPECT_FALSE(document->IsModified());
}

TEST(TextBreaks, LinesBreakAsTheirScriptLetsThem) {
  const struct {
    const char* text;
    std::int32_t width;  ///< in bytes
    std::vector<std::string_view> lines;
  } cases[] = {
      {"\u6F22\u5B57\u6F22\u5B57", 6, {"\u6F22\u5B57", "\u6F22\u5B57"}},
      {"\u6F22\u5B57\u3002\u6F22", 6, {"\u6F22", "\u5B57\u3002", "\u6F22"}},
      {"\u300C\u6F22\u300D\u5B57", 6, {"\u300C\u6F22\u300D", "\u5B57"}},
      {"if \u6F22\u5B57 x", 6, {"if \u6F22", "\u5B57 x"}},
      {"\u304C\u304B\u3099\u304D", 3, {"\u304C", "\u304B\u3099", "\u304D"}},
      {"gr\u00F6\u00DFe-mal\u00DF x", 4, {"gr\u00F6\u00DFe-mal\u00DF", "x"}},
  };
  const auto widthOf = [](std::string_view text) { return static_cast<std::int32_t>(text.size()); };
  for (const auto& c : cases) {
    EXPECT_EQ(TextLayout(widthOf, c.width, true).Break(c.text, 99), c.lines) << c.text;
  }
}

TEST(TextBreaks, LettersStayWhole) {
  const std::string woman = "\U0001F469\u200D\U0001F4BB";
  const std::string flags = "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7";
  const struct {
    std::string text;
    std::size_t limit;
    std::size_t kept;
  } cases[] = {{"abc", 2, 2},  {"ae\u0301", 3, 1},     {"a" + woman, 8, 1},
               {flags, 15, 8}, {"\u0915\u093F", 4, 3}, {std::string(9, 'a') + "e\u0301", 10, 9}};
  for (const auto& c : cases) {
    EXPECT_EQ(LetterPrefix(c.text, c.limit).size(), c.kept) << c.text;
  }
}

/// Counts what is measured.
class MeasuringDC : public NullDC {
 public:
  SIZE GetTextExtent(std::string_view utf8) const override {
    measured += utf8.size();
    return NullDC::GetTextExtent(utf8);
  }
  mutable std::size_t measured = 0;
};

TEST(TextBreaks, ALongWordTakesTimeByItsLength) {
  std::string ideographs;
  for (int i = 0; i < 100'000; ++i) ideographs += "\u6F22";
  for (const std::string& word : {std::string(300'000, 'x'), ideographs}) {
    MeasuringDC dc;
    RECT note{0, 0, 200, 200};
    dc.DrawText(word, note, DT_WORDBREAK);
    dc.DrawText(word, note, DT_CENTER | DT_WORDBREAK);
    EXPECT_LT(dc.measured, 100'000U) << "no more than shows";
    dc.measured = 0;
    EXPECT_EQ(Advances(word, dc).size(), ToUtf16(word).size());
    EXPECT_LT(dc.measured, word.size() * 256);
  }
}

TEST(TextDirection, IsThatOfTheParagraph) {
  const std::string hebrew = "\u05E9\u05DC\u05D5\u05DD";
  EXPECT_EQ(DirectionOf("1. " + hebrew + " abc"), TextDirection::RightToLeft);
  EXPECT_EQ(DirectionOf("abc " + hebrew), TextDirection::LeftToRight);
  EXPECT_EQ(InDirection("abc", TextDirection::RightToLeft), "\u200Fabc");
  EXPECT_EQ(InDirection(hebrew, TextDirection::RightToLeft), hebrew);
  NullDC reference;
  CMetaFileDC dc(reference);
  RECT room{0, 0, 1000, 200};
  dc.DrawText(hebrew + " abc\nabc " + hebrew, room, DT_WORDBREAK);
  const Metafile drawn = dc.Close();
  ASSERT_EQ(drawn.records.size(), 2U);
  EXPECT_GT(drawn.records[0].points[0].x, 0);
  EXPECT_EQ(drawn.records[1].points[0].x, 0);
}

}  // namespace morvane
