#include "tests/support/ChartTest.h"

namespace {

constexpr int kState = 101;
constexpr int kLine = 103;
constexpr int kNote = 104;

/// A line from (40,40) to (60,60) that stands in front of the note on which it hangs.
std::unique_ptr<LayoutMgr> Chart(const std::string& keys = "3 2 1 1") {
  return LoadChart(ChartText(StateRecord(kState, {35, 30, 45, 40}) +
                             LineRecord(kLine, kState, kNote, keys) +
                             NoteRecord(kNote, {60, 60, 72, 66}, Block("n"))));
}

Line& TheLine(const LayoutMgr& chart) { return *Find<Line>(chart, kLine); }

void MoveState(const LayoutMgr& chart, const RECT& to) {
  Find<GenericState>(chart, kState)->MoveTo(to);
}

TEST(Line, AKeyThatNamesNoAnchorLeavesTheEndWhereItIs) {
  const auto chart = Chart("3 9 1 1");
  MoveState(*chart, {1, 1, 11, 11});
  EXPECT_EQ(TheLine(*chart).GetStart(), (POINT{40, 40}));
}

TEST(Line, HitsItsBandAndItsEnds) {
  const auto chart = Chart();
  for (const POINT p : {POINT{302, 297}, {237, 237}, {242, 237}, {362, 362}}) {
    EXPECT_TRUE(TheLine(*chart).HitTest(p)) << p.x;
  }
  for (const POINT p : {POINT{306, 297}, {236, 236}, {363, 363}, {999, 20}}) {
    EXPECT_FALSE(TheLine(*chart).HitTest(p)) << p.x;
  }
}

TEST(Line, WithoutLengthItIsAPointAndWithoutAPenOfTheTablesItHasTheFirst) {
  const auto chart = LoadChart(ChartText("BEGIN Line 103\n103 50\n7 7 7 7\n0 0\n1 1 1 1\n-1 16\n"));
  const Metafile drawn = PaintOnPaper(TheLine(*chart));
  ASSERT_EQ(drawn.records.size(), 1U);
  EXPECT_EQ(drawn.records[0].points, (std::vector<POINT>{{42, 42}, {43, 42}}));
  EXPECT_EQ(drawn.records[0].pen, (CPen{PenStyle::Dot, 0, 0x000080}));
  EXPECT_TRUE(TheLine(*chart).HitTest({40, 40}));
}

/// The anchor at (50,50) lies under the line itself.
TEST(Line, IsNotInItsOwnWay) {
  const auto chart = LoadChart(ChartText(StateRecord(kState, {50, 45, 60, 55}) +
                                         LineRecord(kLine, 0, 0, "65535 65535 65535 65535")));
  FakeWindow window(*chart);
  chart->GetModel().SelectOnly(&TheLine(*chart));
  window.Move({310, 310});
  window.Move({300, 300});
  window.Release({300, 300});
  chart->OnLButtonDown(MK_LBUTTON, {360, 360});
  EXPECT_EQ(TheLine(*chart).GetEnd(), (POINT{50, 50}));
  EXPECT_EQ(TheLine(*chart).GetEndShape(), Find<GenericState>(*chart, kState));
}

}  // namespace
