#include "tests/support/ChartTest.h"
#include "tests/support/Routes.h"

namespace {

using Texts = std::vector<std::string>;

constexpr int kArrow = 103;
constexpr int kMesg = 104;

/// The transition is upright; its label is at (22,19), which is (132,114) in pixels.
std::unique_ptr<LayoutMgr> Chart(const RECT& rect, int transition = kArrow) {
  const std::string links = LinkLines("22,14 22,15 22,23 22,24");
  return LoadChart(ChartText(TransitionRecord(kArrow, 0, 0, "3 1 1 1", links) +
                             MesgRecord(kMesg, transition, rect, "Open")));
}

Mesg& TheMesg(const LayoutMgr& chart) { return *Find<Mesg>(chart, kMesg); }

TEST(Mesg, ShowsItsThreeTexts) {
  const auto chart = Chart({10, 10, 60, 40});
  Mesg& mesg = TheMesg(*chart);
  mesg.GetText().SetTexts("Open", "x > 1", "a\r\nb");
  EXPECT_EQ(PaintedTexts(PaintOnPaper(mesg)), (Texts{"onEvent(Open)", "[x > 1]", "/a", "b"}));
  mesg.GetText().SetTexts("", "", "");
  EXPECT_EQ(PaintedTexts(PaintOnPaper(mesg)), Texts{"onEvent()"});
}

TEST(Mesg, WithoutATransitionItIsALooseBoxThatKeepsItsReference) {
  const auto chart = Chart({17, 16, 27, 22}, kMesg);
  Mesg& mesg = TheMesg(*chart);
  FakeWindow window(*chart);
  chart->GetSelection().Add(&mesg);
  EXPECT_EQ(PaintedTexts(PaintOnPaper(mesg)), Texts{"onEvent(Open)"});
  mesg.Align();
  mesg.ShowHandles(true);
  mesg.ResizeTo({17, 16, 37, 22});
  EXPECT_FALSE(mesg.IsAligned());
  EXPECT_NE(chart->ModelText().find("17 16 37 22\n1\n1 1 16777215 65280\n104\nOpen\n"),
            std::string::npos);
}

TEST(Note, HidesItsMarksButKeepsThemAndHasNoAnchorAtTheFold) {
  const auto chart = LoadChart(ChartText(NoteRecord(1, {40, 10, 52, 16}, Block("a<M>b<<M>M>c<M"))));
  Note& note = *Find<Note>(*chart, 1);
  EXPECT_EQ(PaintedTexts(PaintOnPaper(note)), Texts{"abc<M"});
  EXPECT_TRUE(note.GetText().Contains("a<M>b<<M>M>c"));
  EXPECT_NE(chart->ModelText().find("\na<M>b<<M>M>c<M\n"), std::string::npos);
  EXPECT_EQ(note.GetAnchors().size(), 7U);
  EXPECT_EQ(*note.AnchorAt({3, SIDE_BOTTOM}), (POINT{40, 16}));
  AnchorKey key;
  EXPECT_FALSE(note.FindAnchorNear({52 * 6, 10 * 6}, key));
}

}  // namespace
