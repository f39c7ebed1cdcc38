// The route of a transition: how it follows its ends, how it is kept free of crossings, its hit
// region and its label.

#include <algorithm>

#include "connectors/HandleSquare.h"
#include "connectors/HeadLink.h"
#include "connectors/Mesg.h"
#include "connectors/RoutePainter.h"
#include "connectors/RouteSketch.h"
#include "connectors/TailLink.h"
#include "connectors/Transition.h"
#include "model/ChartView.h"
#include "model/ShapeGeometry.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// How far from a link, and to each side of the arrow's base, a click counts, device pixels.
constexpr std::int32_t kLinkReach = 4;
constexpr std::int32_t kArrowReach = 8;
constexpr std::int32_t kLabelReach = 5;
/// The same and more in model units at the least zoom.
constexpr std::int32_t kBoundsMargin = kArrowReach / ChartView::kMinZoom + 1;

RECT Surround(const RECT& r, POINT p) {
  return {std::min(r.left, p.x), std::min(r.top, p.y), std::max(r.right, p.x),
          std::max(r.bottom, p.y)};
}

}  // namespace

POINT Transition::ToClient(POINT model) const { return view->ToClient(model); }

void Transition::RebuildChain() {
  if (!chain.Build(records)) chain.Build(FreeRoute(sourcePoint, targetPoint));
}

void Transition::MoveSourceEnd(POINT anchor) {
  BuildRegion();
  InvalidateEnds();
  chain.Head()->MoveEnds(anchor, StepPoint(anchor, sourceKey.side));
  RefreshRoute();
}

void Transition::MoveTargetEnd(POINT anchor) {
  BuildRegion();
  InvalidateEnds();
  chain.Tail()->MoveEnds(StepPoint(anchor, targetKey.side), anchor);
  RefreshRoute();
}

/// The common end of every operation that changes the route; `BuildRegion` was its beginning.
void Transition::RefreshRoute() {
  const POINT oldLabel = labelCentre;
  if (!chain.Untangle()) {
    RebuildChain();
    view->TellLater(LoadText(IDS_ROUTE_REBUILT));
  }
  RebuildRegion();
  InvalidateEnds();
  FollowLabel(oldLabel);
}

/// A message that stands on the label goes along with it, but for one that the user holds.
void Transition::FollowLabel(POINT oldLabel) {
  if (mesg == nullptr || mesg->IsInSelection()) return;
  const POINT newLabel = LabelPoint();
  if (newLabel == oldLabel || view->SubScroll(mesg->GetCentre()) != oldLabel) return;
  POINT offset = newLabel - oldLabel;
  mesg->OnBroadcast(BROADCAST_MOVE, &offset);
}

/// The label in model units, less the scroll position.
POINT Transition::LabelPoint() const { return view->ToModel(CentreOf(GetLabelRect())); }

RECT Transition::GetLabelRect() const {
  const Link* middle = chain.Middle();
  const RECT handle = middle != nullptr ? middle->GetHandleRect() : RECT{};
  return HandleSquare(CentreOf(handle), kLabelReach);
}

void Transition::InvalidateLabel() {
  if (view != nullptr) view->InvalidateRect(GetLabelRect());
}

CRgn Transition::RegionAt(const Conversion& convert) const {
  CRgn area;
  for (const Link* link = chain.Head(); link != nullptr; link = link->next) {
    area.Add(MakeRectRegion(convert(link->start), convert(link->end), kLinkReach));
  }
  const POINT stub = convert(chain.Tail()->start);
  const POINT tip = convert(chain.Tail()->end);
  area.Add(MakeArrowRegion(RoutePainter::ArrowBase(stub, tip), tip, kArrowReach));
  return area;
}

void Transition::BuildRegion() {
  labelCentre = LabelPoint();
  region = std::make_unique<CRgn>(RegionAt([this](POINT p) { return ToClient(p); }));
  region->Add(CRgn::FromRect(GetLabelRect()));
  NoteBounds();
  NoteView();
}

void Transition::NoteBounds() {
  bounds = RectAt(chain.Head()->start);
  for (const Link* link = chain.Head(); link != nullptr; link = link->next) {
    bounds = Surround(Surround(bounds, link->start), link->end);
  }
  const TailLink& tail = *chain.Tail();
  bounds =
      InflateRect(Surround(bounds, RoutePainter::ArrowBase(tail.start, tail.end)), kBoundsMargin);
  labelAtOrigin = IsRectEmpty(chain.Middle()->GetHandleRect());
}

RECT Transition::GetBounds() const {
  if (!IsPlaced() || !labelAtOrigin) return ComplexShape::GetBounds();
  const CRgn route = RegionAt([this](POINT p) { return ToClient(p); });
  return view->AddScroll(view->ToModel(route.GetBox()));
}

RECT Transition::GetPaintBounds() const {
  if (!labelAtOrigin) return bounds;
  return UnionRect(bounds, view->AddScroll(InflateRect(RECT{}, kBoundsMargin)));
}

bool Transition::HitTest(const POINT& client) const {
  return IsPlaced() && PtInRect(view->ToClient(GetPaintBounds()), client) &&
         ComplexShape::HitTest(client);
}

}  // namespace morvane
