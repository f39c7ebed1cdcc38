#include "fuzz/Walk.h"

#include "fuzz/AnyUser.h"
#include "fuzz/ChartHand.h"
#include "model/MoveSettings.h"
#include "platform/Clipboard.h"

namespace morvane {

Walk Walk::Go(ByteSource& source) {
  AnyUser user(source);
  user.typesWords = true;
  Service<Clipboard>::Get().Put({});
  MoveSettings::SetMovesContents(false);
  ChartHand hand([&source](int limit) { return source.Below(limit); });
  Walk walk;
  while (walk.fault.empty() && !source.IsEmpty()) {
    hand.DoEverything();
    walk.fault = hand.Fault();
  }
  if (walk.fault.empty()) walk.fault = hand.HistoryFault();
  if (walk.fault.empty()) walk.fault = hand.Fault();
  if (walk.fault.empty()) walk.fault = hand.TextFault();
  walk.steps = hand.StepCount();
  return walk;
}

}  // namespace morvane
