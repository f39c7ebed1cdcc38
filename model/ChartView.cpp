#include "model/ChartView.h"

#include "drawing/Mapping.h"
#include "model/ObjectBrowser.h"

namespace morvane {

RECT ChartView::ToLogical(const RECT& r) const {
  return {ToLogical(r.left), ToLogical(r.top), ToLogical(r.right), ToLogical(r.bottom)};
}

RECT ChartView::ToDevice(const RECT& r) const {
  return {ToDevice(r.left), ToDevice(r.top), ToDevice(r.right), ToDevice(r.bottom)};
}

RECT ChartView::ToModel(const RECT& r) const {
  return {ToModel(r.left), ToModel(r.top), ToModel(r.right), ToModel(r.bottom)};
}

Mapping ChartView::LogicalMapping() const {
  Mapping mapping;
  mapping.SetMode(MapMode::Isotropic);
  mapping.SetWindowExt({kLogicalPerModel, kLogicalPerModel});
  mapping.SetViewportExt({zoom, zoom});
  mapping.SetViewportOrg(POINT{} - ShownPosition());
  return mapping;
}

void ChartView::InvalidateModelRect(const RECT& first, const RECT& second) {
  InvalidateRect(first);
  InvalidateRect(second);
}

void ChartView::UpdateNodes(Shape* shape) {
  if (ObjectBrowser* browser = GetObjectTree()) browser->UpdateNodes(shape);
}

}  // namespace morvane
