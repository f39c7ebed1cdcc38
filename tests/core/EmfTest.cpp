#include "drawing/CMetaFileDC.h"
#include "drawing/EmfWriter.h"
#include "drawing/NullDC.h"
#include "drawing/SvgDC.h"
#include "drawing/Utf16.h"
#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"
#include "tests/support/FakeClipboard.h"

namespace morvane {

namespace {

TEST(CopyAsMetafile, PutsThePictureInSeveralFormatsOrSaysWhatFails) {
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  const auto chart = LoadChart(SmallChart());
  boxes.Expect("Chart copied to clipboard as metafile successfully.");
  EXPECT_TRUE(chart->OnCommand(ID_COPY_METAFILE));
  EXPECT_EQ(boxes.LastFlags(), 0U);
  ASSERT_GE(clipboard.items.size(), 4U);
  EXPECT_EQ(clipboard.items[0].format, "image/x-emf");
  EXPECT_EQ(clipboard.items[3].format, "image/svg+xml");
  const EmfReader reader(clipboard.items[0].bytes);
  reader.CheckFrame();
  EXPECT_EQ(reader.CountOf(EmfReader::kExtTextOut), 5U)
      << "name, two headings, two lines of the note";
  const RECT bounds = reader.RectAtOffset(8);
  EXPECT_EQ(bounds.left, 17 * 6) << "the state, at six units to the model unit";
  EXPECT_EQ(bounds.right, 52 * 6 - 1) << "the note; the edge is inside";
  EXPECT_EQ(reader.RectAtOffset(24).left, 17 * 6 * 2540 / 96) << "the frame";

  for (const auto& [step, flags] : {std::pair{ClipboardError::Open, 0x10U},
                                    {ClipboardError::Empty, 0x10U},
                                    {ClipboardError::Set, 0U}}) {
    clipboard.failure = step;
    boxes.Expect("Error accessing clipboard");
    chart->OnCommand(ID_COPY_METAFILE);
    EXPECT_EQ(boxes.LastFlags(), flags);
  }
}

TEST(EmfWriter, WritesWhatOtherProgramsShow) {
  NullDC reference;
  CMetaFileDC dc(reference);
  const RECT box{10, 20, 70, 60};
  dc.TextOut({12, 22}, "long text", &box);
  dc.RoundRect(box, {30, 30});
  dc.TextOut({60, 22}, "cut off", &box);
  dc.RoundRect(box, {30, 30});
  const EmfReader reader(EmfWriter::Encode(dc.Close(), reference, "Program"));
  reader.CheckFrame();
  // A curve of its own for each corner, from a radius of half the ellipse.
  EXPECT_EQ(reader.CountOf(EmfReader::kPolyBezierTo), 8U);
  const Metafile replayed = reader.Replay();
  ASSERT_EQ(replayed.records.size(), 4U);
  EXPECT_EQ(replayed.records[1].rect, box);
  EXPECT_EQ(replayed.records[1].corner, (SIZE{30, 30}));
  EXPECT_NE(replayed.records[1].pen.colour, 0U) << "a black one is painted by nobody";
  // Pen and brush are selected again behind a text, and one text is clipped from outside.
  EXPECT_EQ(reader.CountOf(EmfReader::kSelectObject), 5U);
  EXPECT_EQ(reader.CountOf(EmfReader::kSaveDC), 1U);
  EXPECT_EQ(reader.CountOf(EmfReader::kRestoreDC), 1U);
}

/// Finds a part from right to left, that ends in a sign without a direction, behind one from left
/// to right that it stands in front of.
class TurningDC : public NullDC {
 public:
  std::vector<TextRun> GetTextRuns(std::string_view utf8) const override {
    return {{utf8.substr(0, 2), TextDirection::LeftToRight, 24.6, 10},
            {utf8.substr(2), TextDirection::RightToLeft, 0, 24.6}};
  }
};

TEST(TextRuns, StandByThemselvesInPicturesForOtherPrograms) {
  TurningDC reference;
  CMetaFileDC dc(reference);
  const std::string line = "ab\u05D0\u05D1!";
  dc.TextOut({12, 22}, line, nullptr);
  const EmfReader reader(EmfWriter::Encode(dc.Close(), reference, "Program"));
  reader.CheckFrame();
  EXPECT_EQ(reader.CountOf(EmfReader::kMoveTo), 3U) << "else one program joins them";
  const std::vector<Metafile::Record> texts = reader.Replay().records;
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "ab");
  EXPECT_EQ(texts[0].points[0], (POINT{37, 22}));
  EXPECT_EQ(texts[1].text, "\u05D0\u05D1!\u200F") << "the sign stays at the left";
  EXPECT_EQ(texts[1].points[0], (POINT{12, 22}));

  SvgDC svg(reference, {60, 40});
  svg.TextOut({12, 22}, line, nullptr);
  const std::string picture = svg.Close();
  for (const std::string_view part : {"<text x=\"36.6\"", ">ab</text>\n<text x=\"12\"",
                                      "preserve\">\u202B\u05D0\u05D1!\u200F\u202C</text>"}) {
    EXPECT_NE(picture.find(part), std::string::npos) << part << " in " << picture;
  }
}

/// Counts the bytes that it measures.
class CountingDC : public NullDC {
 public:
  SIZE GetTextExtent(std::string_view utf8) const override {
    measured += utf8.size();
    return NullDC::GetTextExtent(utf8);
  }
  mutable std::size_t measured = 0;
};

TEST(Advances, CostNoMoreThanTheLengthOfALineWants) {
  CountingDC dc;
  dc.SelectFont({"Face", -10, CFont::kNormalWeight});
  for (const std::size_t length : {100U, 300'000U}) {
    dc.measured = 0;
    const std::vector<std::int32_t> advances = Advances(std::string(length, 'x'), dc);
    EXPECT_EQ(advances, std::vector<std::int32_t>(length, 5));
    EXPECT_LT(dc.measured, length * 256);
  }
}

}  // namespace

}  // namespace morvane
