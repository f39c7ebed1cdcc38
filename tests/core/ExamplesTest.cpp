#include "tests/support/ChartTest.h"
#include "tests/support/Places.h"

namespace morvane {

namespace {

/// The charts that come with the program.
TEST(Examples, WriteTheirBytesBackAlsoWhenTheirStatesAreTouched) {
  for (const char* name : {"Socket_C++/Socket.mrv", "Lift/Lift.mrv", "CashMachine/CashMachine.mrv",
                           "Turnstile_C/Turnstile.mrv", "WashingMachine_C#/WashingMachine.mrv",
                           "Safe_Java/Safe.mrv", "Alarm_XML/Alarm.mrv"}) {
    SCOPED_TRACE(name);
    const std::string path = SourcePath("Examples/") + name;
    LayoutMgr chart;
    std::string bytes;
    ASSERT_EQ(ModelFile::Load(path, chart), "");
    ASSERT_TRUE(ReadWholeFile(path, bytes).Ok());
    chart.PlaceWithoutWindow(LayoutMgr::Size::Stored);
    EXPECT_EQ(ModelFile::ToDisk(chart.ModelText()), bytes);
    for (Shape* shape : chart.GetModel().Objects()) {
      if (auto* state = dynamic_cast<State*>(shape))
        state->OnRectChanged(state->GetBounds(), false);
      if (const auto* transition = dynamic_cast<Transition*>(shape)) {
        EXPECT_TRUE(transition->GetSource() != nullptr && transition->GetTarget() != nullptr);
        EXPECT_TRUE(transition->GetMesg() == nullptr || transition->GetMesg()->IsAligned());
      }
    }
    EXPECT_EQ(ModelFile::ToDisk(chart.ModelText()), bytes);
  }
}

}  // namespace

}  // namespace morvane
