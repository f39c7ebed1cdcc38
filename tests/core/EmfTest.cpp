#include "drawing/EmfWriter.h"
#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"
#include "tests/support/FakeClipboard.h"

namespace morvane {

namespace {

TEST(Emf, TextsKeepTheirLettersClipAndAdvances) {
  NullDC reference;
  CMetaFileDC dc(reference);
  CFont font;
  font.height = -10;
  dc.SelectFont(font);
  const RECT clip{0, 0, 12, 8};
  dc.TextOut({3, 4}, "a\xF0\x9F\x98\x80", &clip);
  const EmfReader reader(EmfWriter::Encode(dc.Close(), reference, "Program"));
  reader.CheckFrame();
  ASSERT_EQ(reader.CountOf(EmfReader::kExtTextOut), 1U);
  std::size_t record = 0;
  while (reader.TypeOf(record) != EmfReader::kExtTextOut) ++record;
  const std::size_t at = reader.offsets[record];
  const auto number = [&](std::size_t place) { return reader.Get<std::uint32_t>(at + place); };
  EXPECT_EQ(reader.RectAtOffset(at + 8), (RECT{3, 4, 11, 7}));
  EXPECT_EQ(number(44), 3U) << "UTF-16 units";
  EXPECT_EQ(number(52), 4U) << "clipped";
  EXPECT_EQ(reader.RectAtOffset(at + 56), clip);
  const char16_t units[] = {u'a', 0xD83D, 0xDE00};
  const std::uint32_t advances[] = {5, 5, 0};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(reader.Get<char16_t>(at + number(48) + 2 * i), units[i]);
    EXPECT_EQ(number(number(72) + 4 * i), advances[i]);
  }
}

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

}  // namespace

}  // namespace morvane
