#include "surface/StateSize.h"

#include <algorithm>

#include "model/ChartView.h"
#include "states/GenericState.h"

namespace morvane {

namespace {

/// Model units. Anchors need some distance, and a text of the size of a page gets no more.
constexpr SIZE kLeast{20, 12};
constexpr SIZE kMost{80, 100};
/// What is no room for text at both sides together, and below the name and the texts, logical
/// units.
constexpr std::int32_t kAcross = 12;
constexpr std::int32_t kBelowName = 4;
constexpr std::int32_t kBelowTexts = 6;
/// The mark of a history and its twin on the other side of the name, which stays in the middle.
constexpr std::int32_t kHistory = 60;

/// Up to an even number, so that the middle is a whole one.
std::int32_t Even(std::int32_t units) { return units + units % 2; }

std::int32_t Units(std::int32_t logical) {
  return AddSat(logical, ChartView::kLogicalPerModel - 1) / ChartView::kLogicalPerModel;
}

}  // namespace

StateSize StateSize::Of(const GenericState& state, const ChartView& view) {
  const std::int32_t room = view.ToLogical(kMost.cx) - kAcross;
  SIZE name = view.MeasureChartText(state.GetName(), room, ChartView::Letters::Bold);
  if (state.KeepsHistory()) name.cx = AddSat(name.cx, kHistory);
  const SIZE texts = view.MeasureChartText(state.GetEntryExit().ShownText(), room);
  const std::int32_t width = Units(AddSat(std::max(name.cx, texts.cx), kAcross));
  const std::int32_t height =
      Units(AddSat(AddSat(name.cy, kBelowName), AddSat(texts.cy, kBelowTexts)));
  const std::int32_t head = std::min(height, kMost.cy);
  return {
      {std::clamp(Even(width), kLeast.cx, kMost.cx), std::clamp(Even(height), kLeast.cy, kMost.cy)},
      head};
}

}  // namespace morvane
