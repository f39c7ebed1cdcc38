#include "shell/qt/CMainFrame.h"
#include "shell/qt/FrameState.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/WindowTest.h"

namespace {

/// Two runs of the program, one after the other, on a profile of the test's own.
class FrameStateTest : public testing::Test {
 protected:
  static std::unique_ptr<CMainFrame> MakeFrame() {
    return std::make_unique<CMainFrame>(
        CMainFrame::Factories{[] { return std::make_unique<FakeDocument>(); },
                              [] { return std::make_unique<FakeView>(); }});
  }
  static bool IsShown(CMainFrame& frame, unsigned bar) { return frame.StateOf(bar).checked; }

  MemoryProfile profile;
  const UseService<Profile> use{profile};
};

TEST_F(FrameStateTest, BarsAndPlacementLast) {
  constexpr QRect placement(60, 50, 900, 620);
  {
    const auto frame = MakeFrame();
    frame->show();
    frame->setGeometry(placement);
    QApplication::processEvents();
    EXPECT_TRUE(IsShown(*frame, ID_DRAWING_BAR));
    frame->RunCommand(ID_DRAWING_BAR);
    frame->RunCommand(ID_CHART_BROWSER);
    frame->close();
  }
  const auto frame = MakeFrame();
  ASSERT_TRUE(FrameState::Restore(*frame));
  EXPECT_TRUE(frame->isVisible());
  EXPECT_EQ(frame->size(), placement.size());
  EXPECT_FALSE(IsShown(*frame, ID_DRAWING_BAR));
  EXPECT_FALSE(IsShown(*frame, ID_CHART_BROWSER));
  EXPECT_TRUE(IsShown(*frame, ID_VIEW_TOOLBAR));
}

TEST_F(FrameStateTest, AnEmptyOrDamagedProfileIsNoState) {
  for (const char* damaged : {"", "not base64 at all %%%", "AAAA", "QUJDREVGR0g="}) {
    profile.WriteString("Frame", "Placement", damaged);
    profile.WriteString("Frame", "Bars", damaged);
    const auto frame = MakeFrame();
    EXPECT_FALSE(FrameState::Restore(*frame)) << damaged;
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(IsShown(*frame, ID_DRAWING_BAR));
  }
}

}  // namespace
