#include "platform/EmfWriter.h"
#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"
#include "tests/support/FakeClipboard.h"

namespace {

TEST(Emf, AChartBecomesAValidMetafile) {
  const auto chart = LoadChart(SmallChart());
  const EmfReader reader(ChartPicture(*chart).MakeEmf());
  reader.CheckFrame();
  EXPECT_EQ(reader.CountOf(EmfReader::kExtTextOut), 5U)
      << "name, two headings, two lines of the note";
  const RECT bounds = reader.RectAtOffset(8);
  EXPECT_EQ(bounds.left, 17 * 6) << "the state, at six units to the model unit";
  EXPECT_EQ(bounds.right, 52 * 6 - 1) << "the note; the edge is inside";
  const RECT frame = reader.RectAtOffset(24);
  EXPECT_EQ(frame.left, 17 * 6 * 2540 / 96);
}

TEST(Emf, TextsKeepTheirLettersClipAndAdvances) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  CFont font;
  font.height = -10;
  dc.SelectFont(font);
  dc.SetTextColor(0x123456);
  const RECT clip{0, 0, 12, 8};
  dc.TextOut({3, 4}, "a\xF0\x9F\x98\x80", &clip);
  const EmfReader reader(EmfWriter::Encode(dc.Close(), reference, "Program"));
  reader.CheckFrame();
  for (std::size_t i = 0; i < reader.offsets.size(); ++i) {
    if (reader.TypeOf(i) != EmfReader::kExtTextOut) continue;
    const std::size_t at = reader.offsets[i];
    EXPECT_EQ(reader.RectAtOffset(at + 8), (RECT{3, 4, 11, 7}));
    EXPECT_EQ(reader.Get<std::uint32_t>(at + 44), 3U) << "UTF-16 units";
    const auto text = reader.Get<std::uint32_t>(at + 48);
    EXPECT_EQ(reader.Get<std::uint32_t>(at + 52), 4U) << "clipped";
    EXPECT_EQ(reader.RectAtOffset(at + 56), clip);
    EXPECT_EQ(reader.Get<char16_t>(at + text), u'a');
    EXPECT_EQ(reader.Get<char16_t>(at + text + 2), 0xD83D);
    EXPECT_EQ(reader.Get<char16_t>(at + text + 4), 0xDE00);
    const auto advances = reader.Get<std::uint32_t>(at + 72);
    EXPECT_EQ(reader.Get<std::int32_t>(at + advances), 5);
    EXPECT_EQ(reader.Get<std::int32_t>(at + advances + 4), 5);
    EXPECT_EQ(reader.Get<std::int32_t>(at + advances + 8), 0);
  }
  EXPECT_EQ(reader.CountOf(EmfReader::kExtTextOut), 1U);
}

TEST(CopyAsMetafile, PutsThePictureInSeveralFormats) {
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  const auto chart = LoadChart(SmallChart());
  boxes.Expect("Chart copied to clipboard as metafile successfully.");
  EXPECT_TRUE(chart->OnCommand(ID_COPY_METAFILE));
  EXPECT_EQ(boxes.LastFlags(), 0U);
  ASSERT_GE(clipboard.items.size(), 4U);
  EXPECT_EQ(clipboard.items[0].format, "image/x-emf");
  EmfReader(clipboard.items[0].bytes).CheckFrame();
  EXPECT_EQ(clipboard.items[3].format, "image/svg+xml");
}

TEST(CopyAsMetafile, EachFailingStepHasItsMessage) {
  const struct {
    ClipboardError step;
    unsigned flags;
  } cases[] = {
      {ClipboardError::Open, 0x10}, {ClipboardError::Empty, 0x10}, {ClipboardError::Set, 0}};
  FakeClipboard clipboard;
  ScriptedMessageBoxes boxes;
  const auto chart = LoadChart(SmallChart());
  for (const auto& c : cases) {
    clipboard.failure = c.step;
    boxes.Expect("Error accessing clipboard");
    chart->OnCommand(ID_COPY_METAFILE);
    EXPECT_EQ(boxes.LastFlags(), c.flags);
  }
}

}  // namespace
