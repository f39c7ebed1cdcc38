#include "connectors/TextFit.h"

#include <algorithm>

#include "model/ChartView.h"

namespace morvane {

namespace {

/// A line that is longer is broken, model units.
constexpr std::int32_t kLineWidth = 40;
/// A box grows no further, model units.
constexpr SIZE kMostSize{60, 60};
/// At other zooms than the normal one letters are a little wider, logical units.
constexpr std::int32_t kSlack = 3;

SIZE SizeOf(const RECT& r) { return {Saturate(Width(r)), Saturate(Height(r))}; }

std::int32_t Units(std::int32_t logical) {
  return AddSat(logical, ChartView::kLogicalPerModel - 1) / ChartView::kLogicalPerModel;
}

}  // namespace

TextFit::TextFit(const RECT& first, SIZE margins) : first(SizeOf(first)), margins(margins) {}

SIZE TextFit::SizeFor(const ChartView& view, const std::string& text) const {
  const std::int32_t room = view.ToLogical(kLineWidth) - margins.cx - kSlack;
  const SIZE shown = view.MeasureChartText(text, room);
  const std::int32_t width = Units(AddSat(shown.cx, margins.cx + kSlack));
  const std::int32_t height = Units(AddSat(shown.cy, margins.cy));
  return {std::clamp(width, first.cx, kMostSize.cx), std::clamp(height, first.cy, kMostSize.cy)};
}

bool TextFit::IsAutomatic(const ChartView& view, const RECT& box, const std::string& text) const {
  const SIZE size = SizeOf(box);
  return size == first || size == grown || size == SizeFor(view, text);
}

RECT TextFit::Grow(const ChartView& view, const RECT& box, const std::string& text) {
  const SIZE wanted = SizeFor(view, text);
  const SIZE size = SizeOf(box);
  grown = {std::max(size.cx, wanted.cx), std::max(size.cy, wanted.cy)};
  return {box.left, box.top, AddSat(box.left, grown.cx), AddSat(box.top, grown.cy)};
}

}  // namespace morvane
