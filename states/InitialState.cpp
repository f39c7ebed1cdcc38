#include "states/InitialState.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"

namespace morvane {

namespace {

/// What keeps the disc off the edges of the rectangle, logical units.
constexpr std::int32_t kDiscMargin = 3;

const std::string kKeyword = "InitialState";

}  // namespace

InitialState::InitialState(std::int32_t id, ChartView* view, const RECT& rect)
    : State(id, view, rect, kKeyword) {}

const std::string& InitialState::GetTypeName() const { return kKeyword; }

RECT InitialState::GetPaintedBorder() const {
  return InflateRect(view->ToLogical(rect), -kDiscMargin);
}

void InitialState::Draw(CDC* dc) {
  const RECT disc = GetPaintedBorder();
  const CBrush oldBrush = dc->SelectBrush(DrawResources::Instance().blackBrush);
  dc->Ellipse(disc);
  dc->SelectBrush(oldBrush);
}

void InitialState::OnRectChanged(const RECT& old, bool sized) {
  ConnectableRectShape::OnRectChanged(old, sized);
  UpdateOutgoing(sized);
}

void InitialState::RefreshAnchors() { RefreshMiddleAnchors(); }

}  // namespace morvane
