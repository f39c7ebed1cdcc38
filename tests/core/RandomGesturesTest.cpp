#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "tests/support/AgreeingMessageBoxes.h"
#include "tests/support/ChartHand.h"

namespace {

int GestureCount() {
  const char* wanted = std::getenv("MORVANE_GESTURES");
  return wanted != nullptr ? std::max(std::atoi(wanted), 1) : 4000;
}

TEST(RandomGestures, KeepEveryChartSound) {
  AgreeingMessageBoxes boxes;
  constexpr int seeds = 8;
  const int count = GestureCount() / seeds;
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    std::mt19937 random(seed);
    ChartHand hand(
        [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); });
    std::size_t most = 0;
    for (int gesture = 0; gesture < count; ++gesture) {
      const std::string where =
          "seed " + std::to_string(seed) + ", gesture " + std::to_string(gesture);
      hand.DoAnything();
      ASSERT_EQ(hand.Fault(), "") << where;
      if (gesture % 10 == 0) {
        ASSERT_EQ(hand.TextFault(), "") << where;
      }
      if (gesture % 100 == 0) {
        ASSERT_EQ(hand.HistoryFault(), "") << where;
      }
      hand.LeaveWindow();
      ASSERT_EQ(hand.Feedback(), 0U) << where;
      most = std::max(most, hand.ObjectCount());
    }
    EXPECT_GT(most, 10U) << "the hand has to get somewhere";
  }
}

}  // namespace
