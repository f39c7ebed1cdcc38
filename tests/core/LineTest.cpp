#include "dialogs/LinePens.h"
#include "tests/support/ChartTest.h"

namespace {

constexpr int kLine = 103;
constexpr int kNote = 104;

/// A line from (40,40) to (60,60) that stands in front of the note on which it hangs.
std::unique_ptr<LayoutMgr> Chart(int start = 101, int end = kNote,
                                 const std::string& keys = "3 2 1 1") {
  return LoadChart(ChartText(StateRecord(101, {35, 30, 45, 40}) +
                             LineRecord(kLine, start, end, keys) +
                             NoteRecord(kNote, {60, 60, 72, 66}, Block("n"))));
}

Line& TheLine(const LayoutMgr& chart) { return *Find<Line>(chart, kLine); }

TEST(Line, AWrongReferenceIsAFreeEnd) {
  const auto chart = Chart(99, kLine, "65535 65535 9 9");
  EXPECT_EQ(TheLine(*chart).GetStartShape(), nullptr);
  EXPECT_EQ(TheLine(*chart).GetEndShape(), nullptr);
  EXPECT_NE(chart->ModelText().find("\n0 0\n65535 65535 9 9\n"), std::string::npos);
  // A key that names no anchor leaves the end where it is.
  const auto stale = Chart(101, 0, "3 9 1 1");
  Find<GenericState>(*stale, 101)->MoveTo({1, 1, 11, 11});
  EXPECT_EQ(TheLine(*stale).GetStart(), (POINT{40, 40}));
}

TEST(Line, FollowsAndLetsGo) {
  const auto chart = Chart();
  Line& line = TheLine(*chart);
  EXPECT_EQ(line.GetEndShape(), Find<Note>(*chart, kNote)) << "which stands behind it in the file";
  Find<GenericState>(*chart, 101)->MoveTo({38, 32, 48, 42});
  EXPECT_EQ(line.GetStart(), (POINT{43, 42}));
  // Selected, it follows a resize but not a move.
  chart->GetSelection().Add(&line);
  Find<GenericState>(*chart, 101)->MoveTo({1, 1, 11, 11});
  EXPECT_EQ(line.GetStart(), (POINT{43, 42}));
  Find<GenericState>(*chart, 101)->ResizeTo({1, 1, 21, 11});
  EXPECT_EQ(line.GetStart(), (POINT{11, 11}));
  delete Find<Note>(*chart, kNote);
  EXPECT_EQ(line.GetEndShape(), nullptr);
  EXPECT_EQ(line.GetEnd(), (POINT{60, 60}));
  POINT by{1, 2};
  line.OnBroadcast(BROADCAST_MOVE, &by);
  EXPECT_EQ(line.GetStartShape(), nullptr);
  EXPECT_TRUE(Find<GenericState>(*chart, 101)->GetConnectors().empty());
  EXPECT_EQ(line.GetStart(), (POINT{12, 13}));
}

TEST(Line, HitsItsBandAndItsEnds) {
  const auto chart = Chart();
  const Line& line = TheLine(*chart);
  const struct {
    POINT p;
    bool hit;
  } cases[] = {{{300, 300}, true}, {{302, 297}, true},  {{306, 297}, false},
               {{237, 237}, true}, {{242, 237}, true},  {{236, 236}, false},
               {{362, 362}, true}, {{363, 363}, false}, {{999, 20}, false}};
  for (const auto& c : cases) EXPECT_EQ(line.HitTest(c.p), c.hit) << c.p.x << ' ' << c.p.y;
}

TEST(Line, PensComeFromTheTablesWhateverTheFileSays) {
  EXPECT_EQ(MakeLinePen(4, 13), (CPen{PenStyle::Solid, 0, 0xFF0000}));
  EXPECT_EQ(MakeLinePen(3, 0), (CPen{PenStyle::DashDotDot, 0, 0x000080}));
  EXPECT_EQ(MakeLinePen(5, 16), (CPen{PenStyle::Dot, 0, 0x000080}));
  EXPECT_EQ(MakeLinePen(-1, -7), (CPen{PenStyle::Dot, 0, 0x000080}));
}

TEST(Line, PaintsInLogicalUnitsAndAPointWhereItHasNoLength) {
  const auto chart = Chart();
  const auto paint = [&](Line& line) {
    CNullDC reference;
    CMetaFileDC dc(reference);
    dc.SetPrinting(true);
    line.Draw(&dc);
    const Metafile drawn = dc.Close();
    EXPECT_EQ(drawn.records.size(), 1U);
    EXPECT_EQ(drawn.records[0].pen, MakeLinePen(0, 0));
    return drawn.records[0].points;
  };
  EXPECT_EQ(paint(TheLine(*chart)), (std::vector<POINT>{{240, 240}, {360, 360}}));
  const auto other = LoadChart(ChartText("BEGIN Line 103\n103 50\n7 7 7 7\n0 0\n1 1 1 1\n0 0\n"));
  EXPECT_EQ(paint(TheLine(*other)), (std::vector<POINT>{{42, 42}, {43, 42}}));
  EXPECT_TRUE(TheLine(*other).HitTest({40, 40}));
}

struct DragCase {
  const char* name;
  POINT from;
  std::vector<POINT> way;
  POINT start, end;
  int startShape, endShape;
};

TEST(Line, DragsItsEndsAndItself) {
  const DragCase cases[] = {
      // The right side's mark stands two pixels further in.
      {"an end to an anchor", {361, 361}, {{300, 200}, {271, 211}}, {40, 40}, {45, 35}, 101, 101},
      {"an end into the open", {360, 360}, {{500, 200}}, {40, 40}, {83, 33}, 101, 0},
      {"an end onto the other", {240, 240}, {{362, 361}}, {40, 40}, {60, 60}, 101, kNote},
      {"the whole", {300, 300}, {{312, 318}}, {42, 43}, {62, 63}, 0, 0},
      {"a click", {300, 300}, {}, {40, 40}, {60, 60}, 101, kNote},
      {"a click on an end", {241, 241}, {}, {40, 40}, {60, 60}, 101, kNote}};
  for (const DragCase& c : cases) {
    const auto chart = Chart();
    FakeWindow window(*chart);
    Line& line = TheLine(*chart);
    for (const POINT p : c.way) window.Move(p);
    window.Release(c.way.empty() ? c.from : c.way.back());
    line.OnLButtonDown(0, c.from.x, c.from.y);
    EXPECT_EQ(line.GetStart(), c.start) << c.name;
    EXPECT_EQ(line.GetEnd(), c.end) << c.name;
    EXPECT_EQ(line.GetStartShape() != nullptr ? line.GetStartShape()->GetId() : 0, c.startShape)
        << c.name;
    EXPECT_EQ(line.GetEndShape() != nullptr ? line.GetEndShape()->GetId() : 0, c.endShape)
        << c.name;
    EXPECT_EQ(window.Feedback(), 0U) << c.name;
  }
}

TEST(Line, IsNotInItsOwnWay) {
  // The anchor at (50,50) lies under the line itself.
  const auto chart = LoadChart(ChartText(StateRecord(101, {50, 45, 60, 55}) +
                                         LineRecord(kLine, 0, 0, "65535 65535 65535 65535")));
  FakeWindow window(*chart);
  chart->GetModel().SelectOnly(&TheLine(*chart));
  window.Move({310, 310});
  window.Move({300, 300});
  window.Release({300, 300});
  chart->OnLButtonDown(MK_LBUTTON, {360, 360});
  EXPECT_EQ(TheLine(*chart).GetEnd(), (POINT{50, 50}));
  EXPECT_EQ(TheLine(*chart).GetEndShape(), Find<GenericState>(*chart, 101));
}

}  // namespace
