#include "machine/MachineBuilder.h"
#include "surface/ChartArranger.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Places.h"

namespace morvane {

namespace {

const char* const kExamples[] = {"CashMachine/CashMachine.mrv", "Lift/Lift.mrv",
                                 "Socket_C++/Socket.mrv", "WashingMachine_C#/WashingMachine.mrv"};

/// What each box stands in, and the number, kind and text of each object.
std::string Kept(const LayoutMgr& chart) {
  std::string kept;
  const std::vector<ChartArranger::Part> parts = PartsOf(chart.GetModel());
  for (const ChartArranger::Part& part : parts) {
    kept += std::to_string(part.shape->GetId()) + " in " +
            (part.holder < 0 ? "0" : std::to_string(parts[part.holder].shape->GetId())) + '\n';
  }
  for (const Shape* shape : chart.GetModel().Objects()) {
    kept += shape->GetTypeName() + ' ' + std::to_string(shape->GetId());
    if (const auto* message = dynamic_cast<const Mesg*>(shape)) {
      kept += message->GetText().ShownText() + std::to_string(message->GetReadTransitionId());
    }
    if (const auto* state = dynamic_cast<const GenericState*>(shape)) kept += state->GetName();
    kept += '\n';
  }
  return kept;
}

TEST(TidyUp, ExamplesKeepAllButTheirPlacesAndGoBackInOneStep) {
  for (const std::string example : kExamples) {
    LayoutMgr chart;
    ASSERT_EQ(ModelFile::Load(SourcePath("Examples/") + example, chart), "");
    chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
    chart.TakeSnapshot();
    const std::string before = chart.ModelText();
    const std::string kept = Kept(chart);
    EXPECT_TRUE(chart.OnCommand(ID_TIDY_UP));
    EXPECT_NE(chart.ModelText(), before) << example;
    EXPECT_EQ(Kept(chart), kept) << example;
    EXPECT_TRUE(MachineBuilder::FromText(chart.ModelText()).problems.empty()) << example;
    chart.OnCommand(ID_EDIT_UNDO);
    EXPECT_EQ(chart.ModelText(), before) << example;
  }
}

/// A chart with two states in one, and one beside them.
std::string ThreeStates(const RECT& inner) {
  return ChartText(StateRecord(1, {10, 10, 90, 90}) + StateRecord(2, {14, 20, 34, 32}) +
                   StateRecord(3, inner) + StateRecord(4, {100, 10, 120, 30}));
}

TEST(TidyUp, ASelectionStaysWhereItIs) {
  LayoutMgr chart;
  std::string reason;
  ASSERT_TRUE(chart.Restore(ThreeStates({20, 40, 40, 60}), reason)) << reason;
  const ModelMgr& model = chart.GetModel();
  const auto boundsOf = [&model](int id) { return model.Find(id)->GetBounds(); };
  chart.GetModel().Select({model.Find(2), model.Find(3)});
  chart.OnCommand(ID_TIDY_UP);
  EXPECT_EQ(boundsOf(1), (RECT{10, 10, 90, 90}));
  EXPECT_EQ(boundsOf(4), (RECT{100, 10, 120, 30}));
  EXPECT_EQ(TopLeft(boundsOf(2)), (POINT{14, 20}));
  EXPECT_EQ(boundsOf(3).top == 20 || boundsOf(3).left == 14, true);
}

TEST(TidyUp, WithoutRoomNothingChangesAndTheUserIsTold) {
  LayoutMgr chart;
  std::string reason;
  // Both states stand so near the corner that they would stick out of theirs.
  const std::string text =
      ChartText(StateRecord(1, {10, 10, 60, 40}) + StateRecord(2, {46, 26, 52, 32}) +
                StateRecord(3, {53, 33, 59, 39}));
  ASSERT_TRUE(chart.Restore(text, reason)) << reason;
  chart.TakeSnapshot();
  const std::string before = chart.ModelText();
  chart.GetModel().Select({chart.GetModel().Find(2), chart.GetModel().Find(3)});
  ScriptedMessageBoxes boxes;
  boxes.Expect(LoadText(IDS_TIDY_NO_ROOM));
  chart.OnCommand(ID_TIDY_UP);
  EXPECT_EQ(chart.ModelText(), before);
}

}  // namespace

}  // namespace morvane
