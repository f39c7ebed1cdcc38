#include "model/ComplexShape.h"

#include "model/ChartView.h"
#include "model/ShapeGeometry.h"

namespace morvane {

void ComplexShape::GetExtent(std::int32_t& right, std::int32_t& bottom) const {
  right = 0;
  bottom = 0;
  if (!placed) return;
  // At normal size a logical unit is a pixel.
  const RECT box = RegionAt([this](POINT p) { return view->ToLogical(p); }).GetBox();
  const double unit = view->ToLogical(1);
  right = RoundHalfAway(box.right / unit);
  bottom = RoundHalfAway(box.bottom / unit);
}

bool ComplexShape::HitTest(const POINT& client) const {
  const CRgn* current = CurrentRegion();
  return current != nullptr && current->PtInRegion(client);
}

bool ComplexShape::HitTestNear(const POINT& model) const {
  return view != nullptr && HitTest(view->ToClient(model));
}

bool ComplexShape::IsInsideRect(const RECT& model) const {
  const CRgn* current = CurrentRegion();
  if (current == nullptr) return false;
  const RECT device = view->ToClient(model);
  const RECT box = current->GetBox();
  return PtInRect(device, TopLeft(box)) && PtInRect(device, BottomRight(box));
}

void ComplexShape::Invalidate() {
  if (const CRgn* current = CurrentRegion()) view->InvalidateRgn(*current);
}

RECT ComplexShape::GetBounds() const {
  const CRgn* current = CurrentRegion();
  if (current == nullptr) return {};
  return view->AddScroll(view->ToModel(current->GetBox()));
}

void ComplexShape::OnPlaced() {
  placed = true;
  InvalidateNew();
}

void ComplexShape::OnDragMove(POINT& /*client*/) {}

bool ComplexShape::ViewHasChanged() const {
  return regionZoom != view->GetZoom() || regionScroll != view->AddScroll(POINT{});
}

void ComplexShape::NoteView() {
  regionZoom = view->GetZoom();
  regionScroll = view->AddScroll(POINT{});
}

const CRgn* ComplexShape::CurrentRegion() const {
  if (!placed) return nullptr;
  // The region is a cache of the route in device pixels.
  if (region == nullptr || ViewHasChanged()) const_cast<ComplexShape*>(this)->BuildRegion();
  return region.get();
}

void ComplexShape::RebuildRegion() {
  if (region == nullptr) return;
  const std::unique_ptr<CRgn> old = std::move(region);
  BuildRegion();
  view->InvalidateRgn(*old);
  view->InvalidateRgn(*region);
}

}  // namespace morvane
