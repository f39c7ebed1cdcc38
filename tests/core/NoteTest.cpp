#include "tests/support/ChartTest.h"

namespace {

constexpr int kNote = 104;

std::unique_ptr<LayoutMgr> Chart(const std::string& text, const std::string& flags = "0 0") {
  std::string record = NoteRecord(kNote, {40, 10, 52, 16}, Block(text));
  record.replace(record.find("0 0 8454143"), 3, flags);
  return LoadChart(ChartText(record));
}

Metafile Paint(const LayoutMgr& chart) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  dc.SetPrinting(true);
  Find<Note>(chart, kNote)->Draw(&dc);
  return dc.Close();
}

TEST(Note, HidesItsMarksButKeepsThem) {
  const auto chart = Chart("a<M>b<<M>M>c<M");
  const Metafile drawn = Paint(*chart);
  EXPECT_EQ(drawn.records.back().text, "abc<M");
  EXPECT_TRUE(Find<Note>(*chart, kNote)->GetText().Contains("a<M>b<<M>M>c"));
  EXPECT_NE(chart->ModelText().find("\na<M>b<<M>M>c<M\n"), std::string::npos);
}

TEST(Note, HasNoAnchorAtTheFold) {
  const auto chart = Chart("n");
  const Note& note = *Find<Note>(*chart, kNote);
  EXPECT_EQ(note.GetAnchors().size(), 7U);
  EXPECT_EQ(*note.AnchorAt({3, SIDE_BOTTOM}), (POINT{40, 16}));
  EXPECT_EQ(note.AnchorAt({3, SIDE_TOP}), nullptr);
  AnchorKey key;
  EXPECT_FALSE(note.FindAnchorNear({52 * 6, 10 * 6}, key));
}

}  // namespace
