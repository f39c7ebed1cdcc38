#include "persistence/ModelStream.h"
#include "tests/support/ChartTest.h"

namespace {

constexpr int kArrow = 103;
constexpr int kMesg = 104;
/// Upright; its label is at (22,19), which is (132,114) in pixels.
const std::string kLinks = "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n";

std::unique_ptr<LayoutMgr> Chart(const RECT& rect, int transition = kArrow) {
  return LoadChart(ChartText(TransitionRecord(kArrow, 0, 0, "3 1 1 1", kLinks) +
                             MesgRecord(kMesg, transition, rect, "Open")));
}

Mesg& TheMesg(const LayoutMgr& chart) { return *Find<Mesg>(chart, kMesg); }

Metafile Paint(Shape& shape) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  dc.SetPrinting(true);
  shape.Draw(&dc);
  return dc.Close();
}

std::vector<std::string> Texts(const Metafile& drawn) {
  std::vector<std::string> texts;
  for (const Metafile::Record& record : drawn.records) {
    if (record.kind == Metafile::Kind::TextOut) texts.push_back(record.text);
  }
  return texts;
}

TEST(Mesg, ShowsItsThreeTexts) {
  using Lines = std::vector<std::string>;
  const auto chart = Chart({10, 10, 60, 40});
  Mesg& mesg = TheMesg(*chart);
  mesg.GetText().SetTexts("Open", "x > 1", "Run();");
  EXPECT_EQ(Texts(Paint(mesg)), (Lines{"onEvent(Open)", "[x > 1]", "/Run();"}));
  mesg.GetText().SetTexts("Open", "", "a\r\nb");
  EXPECT_EQ(Texts(Paint(mesg)), (Lines{"onEvent(Open)", "/a", "b"}));
  mesg.GetText().SetTexts("", "", "");
  EXPECT_EQ(Texts(Paint(mesg)), Lines{"onEvent()"});
}

TEST(Mesg, OldTextsHoldTheEffectAlone) {
  std::istringstream in("7 20\n1 1 9 9\n1\n1 1 5 6\n3\n" + Block("Run();"));
  ModelStream stream(in);
  stream.fileVersion = 2.9F;
  Mesg mesg;
  mesg.GetText().SetTexts("stale", "", "");
  mesg.Read(stream);
  EXPECT_EQ(mesg.GetText().GetEvent(), "");
  EXPECT_EQ(mesg.GetText().GetEffect(), "Run();");
  // A paste that leaves the transition behind drops the message.
  Shape::IdMap map{{7, 70}};
  EXPECT_FALSE(mesg.RemapIds(map));
  map[3] = 30;
  EXPECT_TRUE(mesg.RemapIds(map));
}

TEST(Mesg, StaysOnTheLabelWhenItIsResizedThere) {
  const auto chart = Chart({17, 16, 27, 22});
  Mesg& mesg = TheMesg(*chart);
  mesg.ResizeTo({17, 16, 37, 22});
  EXPECT_EQ(mesg.GetBounds(), (RECT{12, 16, 32, 22}));
  mesg.MoveTo({30, 30, 50, 36});
  EXPECT_FALSE(mesg.IsAligned());
  mesg.ResizeTo({30, 30, 40, 36});
  EXPECT_EQ(mesg.GetBounds(), (RECT{30, 30, 40, 36}));
  mesg.OnCommand(ID_MESG_ALIGN);
  EXPECT_EQ(mesg.GetBounds(), (RECT{17, 16, 27, 22}));
}

TEST(Mesg, WithoutATransitionItIsALooseBoxThatKeepsItsReference) {
  const auto chart = Chart({17, 16, 27, 22}, kMesg);
  Mesg& mesg = TheMesg(*chart);
  FakeWindow window(*chart);
  chart->GetSelection().Add(&mesg);
  EXPECT_EQ(mesg.GetTransition(), nullptr);
  EXPECT_EQ(Texts(Paint(mesg)), std::vector<std::string>{"onEvent(Open)"});
  mesg.Align();
  mesg.ShowHandles(true);
  mesg.ResizeTo({17, 16, 37, 22});
  EXPECT_FALSE(mesg.IsAligned());
  EXPECT_NE(chart->ModelText().find("17 16 37 22\n1\n1 1 16777215 65280\n104\nOpen\n"),
            std::string::npos);
}

TEST(Mesg, ItsHandleSticksItToTheLabel) {
  // The box's middle is at (40,40), which is (240,240) in pixels.
  const struct {
    const char* name;
    POINT drop;
    bool aligned;
  } cases[] = {{"on the label", {131, 113}, true},
               {"near it", {144, 126}, true},
               {"too far", {150, 126}, false}};
  for (const auto& c : cases) {
    const auto chart = Chart({35, 37, 45, 43});
    FakeWindow window(*chart);
    Mesg& mesg = TheMesg(*chart);
    chart->GetSelection().Add(&mesg);
    window.Move(c.drop);
    window.Release(c.drop);
    mesg.OnLButtonDown(0, 243, 238);
    EXPECT_EQ(mesg.IsAligned(), c.aligned) << c.name;
    EXPECT_EQ(mesg.GetBounds() == (RECT{35, 37, 45, 43}), !c.aligned) << c.name;
    EXPECT_EQ(window.Feedback(), 0U) << c.name;
  }
}

}  // namespace
