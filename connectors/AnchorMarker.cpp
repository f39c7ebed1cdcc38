#include "connectors/AnchorMarker.h"

#include "drawing/CDC.h"
#include "model/DrawResources.h"

namespace {
constexpr std::int32_t kReach = 6;
}

void AnchorMarker::Show(POINT point, CDC& dc) {
  const RECT target = InflateRect(RectAt(point), kReach);
  if (target == rect) return;
  Hide(dc);
  Toggle(target, dc);
  rect = target;
}

void AnchorMarker::Hide(CDC& dc) {
  if (!IsShown()) return;
  Toggle(rect, dc);
  rect = {};
}

/// Draws, or erases what was drawn. The context's white brush leaves the inside as it is.
void AnchorMarker::Toggle(const RECT& r, CDC& dc) {
  const RasterOp oldRop = dc.SetROP2(RasterOp::NotXorPen);
  const CPen oldPen = dc.SelectPen(DrawResources::Instance().markerPen);
  dc.Rectangle(r);
  dc.SelectPen(oldPen);
  dc.SetROP2(oldRop);
}
