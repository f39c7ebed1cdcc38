// The route of a transition: how it follows its ends, how it is kept free of crossings, its hit
// region and its label.

#include <algorithm>

#include "connectors/ChartRouter.h"
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
#include "states/EndableState.h"
#include "states/StartableState.h"

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

RouteEnd Transition::SourceEnd() const {
  const POINT* anchor = source != nullptr ? source->AnchorAt(sourceKey) : nullptr;
  return {anchor != nullptr ? *anchor : chain.Head()->start, sourceKey.side};
}

RouteEnd Transition::TargetEnd() const {
  const POINT* anchor = target != nullptr ? target->AnchorAt(targetKey) : nullptr;
  return {anchor != nullptr ? *anchor : chain.Tail()->end, targetKey.side};
}

bool Transition::RunsThroughOwnState() const { return RunsThroughEnds(chain, source, target); }

void Transition::Reroute(const ChartRouter& router) {
  const bool aligned = mesg != nullptr && mesg->IsAligned();
  BuildRegion();
  chain.Build(router.RouteOf(*this));
  RefreshRoute();
  // Nobody holds it now, even if it's selected.
  if (aligned) mesg->Align();
}

/// Where an end is left free: on the chart with its stub.
POINT Transition::FreePlace(POINT drop, std::uint16_t side) const {
  const POINT stub = StepPoint(drop, side);
  const POINT missing{std::min({drop.x, stub.x, 0}), std::min({drop.y, stub.y, 0})};
  return drop - missing;
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

/// A message that stands on the label goes along with it, but for one that the user moves.
void Transition::FollowLabel(POINT oldLabel) {
  if (mesg == nullptr || mesg->MovesAlong()) return;
  if (mesg->StandsOn(oldLabel)) mesg->PutOn(LabelPoint());
}

/// In a chain of head and tail alone it is the tip.
POINT Transition::LabelPoint() const {
  const Link* middle = chain.Middle();
  if (middle == nullptr) return {};
  if (!middle->IsSegment()) return middle->end;
  return {Middle(middle->start.x, middle->end.x), Middle(middle->start.y, middle->end.y)};
}

RECT Transition::GetLabelRect() const { return HandleSquare(ToClient(LabelPoint()), kLabelReach); }

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
  // At great zooms the head is wider than what is easy to hit.
  const std::int32_t reach = std::max(kArrowReach, RoutePainter::ArrowHalfWidth(convert) + 1);
  area.Add(MakeArrowRegion(RoutePainter::ArrowBase(stub, tip), tip, reach));
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
  const TailLink& tail = *chain.Tail();
  bounds = InflateRect(Surround(GetMoveBounds(), RoutePainter::ArrowBase(tail.start, tail.end)),
                       kBoundsMargin);
}

RECT Transition::GetMoveBounds() const {
  RECT box = RectAt(chain.Head()->start);
  for (const Link* link = chain.Head(); link != nullptr; link = link->next) {
    box = Surround(Surround(box, link->start), link->end);
  }
  return box;
}

bool Transition::HitTest(const POINT& client) const {
  return IsPlaced() && PtInRect(view->ToClient(GetPaintBounds()), client) &&
         ComplexShape::HitTest(client);
}

}  // namespace morvane
