#include "tests/support/ChartTest.h"
#include "tests/support/EmfReader.h"
#include "tests/support/SizedPictures.h"

namespace morvane {

namespace {

constexpr int kLow = std::numeric_limits<int>::min();
constexpr int kHigh = std::numeric_limits<int>::max();
constexpr int kFar = 2'000'000'000;
constexpr const char* kTooLarge = "The chart is too large for a picture of this kind";

class ExportTest : public ::testing::Test {
 protected:
  TempFolder folder;
  SizedPictures pictures;
};

TEST_F(ExportTest, FarAwayObjectsAreRefusedAndWriteNothing) {
  const int most = ChartPicture::kMaxSide / 6 - 1;
  const struct {
    RECT state;
    bool fits, selectionFits;
  } cases[] = {{{10, 10, kFar, 20}, false, false},
               {{-kFar, -kFar, -kFar + 10, -kFar + 10}, true, false},
               {{kLow, kLow, kHigh, kHigh}, false, false},
               // In logical units but a part of it fits 32 bits.
               {{kHigh / 6 - 20, 10, kHigh / 6 + 20, 20}, false, false},
               {{kHigh / 6 - 200, 10, kHigh / 6 - 20, 20}, false, true},
               {{10, 10, most, 20}, true, true},
               {{10, 10, most + 1, 20}, false, true},
               {{kFar, kFar, kFar + 10, kFar + 10}, false, false}};
  for (const auto& c : cases) {
    const auto chart = LoadChart(ChartText(StateRecord(1, c.state)));
    chart->GetModel().SelectAll();
    for (const bool selectionOnly : {false, true}) {
      const ChartPicture picture(*chart, {.selectionOnly = selectionOnly});
      EmfReader(picture.MakeEmf()).CheckFrame();
      const bool fits = selectionOnly ? c.selectionFits : c.fits;
      const bool isSmall = picture.Size().cx <= pictures.limit;
      for (const char* extension : {".svg", ".emf", ".png", ".pdf"}) {
        SCOPED_TRACE(testing::Message() << c.state.right << extension << selectionOnly);
        const bool isVector = extension[1] == 's' || extension[1] == 'e';
        const bool isMade = fits && (isVector || isSmall);
        EXPECT_EQ(picture.Save(folder.Path("o") + extension), isMade ? "" : kTooLarge);
        EXPECT_EQ(std::filesystem::remove(folder.Path("o") + extension), isMade);
      }
    }
  }
}

}  // namespace

}  // namespace morvane
