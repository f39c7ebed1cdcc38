#include "model/ConnectableRectShape.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"
#include "model/ModelStream.h"
#include "resources/CommandIds.h"

namespace morvane {

namespace {

/// How far the mark of an anchor reaches around its point, device pixels.
constexpr std::int32_t kMarkReach = 3;

/// The top left corner of an anchor's mark. On the right and bottom side it stands further in, so
/// that all of it lies on the shape.
POINT MarkPlace(POINT anchor, std::uint16_t side) {
  constexpr std::int32_t half = 2;
  constexpr std::int32_t inward = 3;
  POINT place = anchor - POINT{half, half};
  if (side == SIDE_RIGHT) place.x = SubSat(place.x, inward);
  if (side == SIDE_BOTTOM) place.y = SubSat(place.y, inward);
  return place;
}

}  // namespace

ConnectableRectShape::~ConnectableRectShape() { ReleaseConnectors(); }

void ConnectableRectShape::Write(ModelStream& stream) const {
  RectShape::Write(stream);
  stream << (showAnchors ? "1\n" : "0\n");
}

void ConnectableRectShape::Read(ModelStream& stream) {
  RectShape::Read(stream);
  stream >> showAnchors;
  SkipLine(stream.In());
}

void ConnectableRectShape::DrawMarks(CDC& window) {
  if (showAnchors) DrawAnchors(window);
  RectShape::DrawMarks(window);
}

void ConnectableRectShape::Invalidate() {
  view->InvalidateRect(InflateRect(DeviceRect(), kMarkReach));
}

void ConnectableRectShape::OnCommand(unsigned command) {
  if (command != ID_SHOW_ANCHORS) return RectShape::OnCommand(command);
  showAnchors = !showAnchors;
  Invalidate();
}

void ConnectableRectShape::OnPlaced() {
  RefreshAnchors();
  RectShape::OnPlaced();
  InvalidateNew();
}

void ConnectableRectShape::OnRectChanged(const RECT& /*old*/, bool sized) {
  ForgetAnchors();
  RefreshAnchors();
  NotifyConnectors(sized);
}

void ConnectableRectShape::DrawAnchors(CDC& window) const {
  const DrawResources& resources = DrawResources::Instance();
  const CBrush oldBrush = window.SelectBrush(resources.anchorBrush);
  for (const auto& [key, point] : anchors) {
    window.FillMask(MarkPlace(view->ToClient(point), key.side), resources.anchorMask);
  }
  window.SelectBrush(oldBrush);
}

void ConnectableRectShape::ForgetAnchors() {
  for (const auto& [key, point] : anchors) {
    view->InvalidateRect(InflateRect(RectAt(view->ToClient(point)), kMarkReach));
  }
  ClearAnchors();
}

}  // namespace morvane
