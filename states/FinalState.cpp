#include "states/FinalState.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"

namespace morvane {

namespace {

/// What keeps the ring off the edges of the rectangle, and the disc off the ring, logical units.
constexpr std::int32_t kRingMargin = 3;
constexpr std::int32_t kDiscMargin = 5;

const std::string kKeyword = "FinalState";

}  // namespace

FinalState::FinalState(std::int32_t id, ChartView* view, const RECT& rect)
    : State(id, view, rect, kKeyword) {}

const std::string& FinalState::GetTypeName() const { return kKeyword; }

RECT FinalState::GetPaintedBorder() const {
  return InflateRect(view->ToLogical(rect), -kRingMargin);
}

void FinalState::Draw(CDC* dc) {
  const DrawResources& resources = DrawResources::Instance();
  const RECT ring = GetPaintedBorder();
  const CBrush oldBrush = dc->SelectBrush(resources.nullBrush);
  dc->Ellipse(ring);
  dc->SelectBrush(resources.blackBrush);
  dc->Ellipse(InflateRect(ring, -kDiscMargin));
  dc->SelectBrush(oldBrush);
}

void FinalState::OnRectChanged(const RECT& old, bool sized) {
  ConnectableRectShape::OnRectChanged(old, sized);
  UpdateIncoming(sized);
}

void FinalState::RefreshAnchors() { RefreshMiddleAnchors(); }

}  // namespace morvane
