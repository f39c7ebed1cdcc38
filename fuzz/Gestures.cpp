#include "fuzz/AgreeingMessageBoxes.h"
#include "fuzz/ByteSource.h"
#include "fuzz/ChartHand.h"
#include "fuzz/FuzzTarget.h"

namespace morvane {

// Gestures and commands on a chart without a screen, each choice from the input: the chart stays
// sound, its text can be read, undo shows what was there, and no feedback is left on the screen.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AgreeingMessageBoxes boxes;
  ByteSource source(data, size);
  ChartHand hand([&source](int limit) { return source.Below(limit); });
  while (!source.IsEmpty()) {
    hand.DoAnything();
    Require(hand.Fault());
  }
  hand.LeaveWindow();
  Require(hand.Feedback() == 0, "a gesture leaves feedback behind");
  Require(hand.TextFault());
  Require(hand.HistoryFault());
  Require(hand.Fault());
  return 0;
}

}  // namespace morvane
