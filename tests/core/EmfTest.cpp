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

}  // namespace

}  // namespace morvane
