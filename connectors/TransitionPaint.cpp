// The painting of a transition: on the window, on paper and pictures, and as a ghost.

#include "connectors/HeadLink.h"
#include "connectors/Mesg.h"
#include "connectors/TailLink.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

namespace {

/// More handles than this are repainted as one rectangle.
constexpr std::size_t kMaxSingleHandles = 100;

/// An end reaches so far into its state at the greatest zoom, device pixels.
constexpr std::int32_t kEndReach = 10;

/// Records what a drag within the client area can bring into view.
class GhostRecording : public CMetaFileDC {
 public:
  GhostRecording(CDC& reference, const RECT& client)
      : CMetaFileDC(reference),
        clip(InflateRect(client, Saturate(Width(client)), Saturate(Height(client)))) {}
  RECT GetClipBox() const override { return clip; }

 private:
  RECT clip;
};

}  // namespace

void Transition::DrawOnScreen(CDC& dc) {
  CurrentRegion();
  const Mapping logical = dc.SetMapping(view->ClientMapping());
  DrawRoute(&dc, nullptr);
  DrawMarks(dc);
  dc.SetMapping(logical);
}

void Transition::DrawMarks(CDC& window) {
  const DrawResources& resources = DrawResources::Instance();
  const bool selected = IsInSelection();
  if (selected) {
    for (const RECT& handle : VisibleHandles())
      window.FillSolidRect(handle, resources.handleColour);
  }
  if (mesg != nullptr && (selected || mesg->IsInSelection())) {
    window.FrameRect(GetLabelRect(), resources.linkBrush);
  }
}

void Transition::DrawRoute(CDC* dc, const CPen* pen) const {
  const DrawResources& resources = DrawResources::Instance();
  const bool attached = source != nullptr && target != nullptr;
  const CPen& ownPen = attached ? resources.routePen : resources.freeRoutePen;
  const BkMode oldMode = dc->SetBkMode(BkMode::Transparent);
  const CPen oldPen = dc->SelectPen(pen != nullptr ? *pen : ownPen);
  const Conversion toClient = [this](POINT p) { return ToClient(p); };
  RoutePainter(*dc, toClient, ReachOfEnds(view->GetZoom())).Paint(chain.Points());
  dc->SelectPen(oldPen);
  dc->SetBkMode(oldMode);
}

void Transition::PrintRoute(CDC* dc) const {
  const DrawResources& resources = DrawResources::Instance();
  const bool attached = source != nullptr && target != nullptr;
  const BkMode oldMode = dc->SetBkMode(BkMode::Transparent);
  const CPen oldPen =
      dc->SelectPen(attached ? resources.printRoutePen : resources.printFreeRoutePen);
  const Conversion toLogical = [this](POINT p) { return view->ToLogical(p); };
  RoutePainter(*dc, toLogical, ReachOfEnds(ChartView::kLogicalPerModel)).Paint(chain.Points());
  dc->SelectPen(oldPen);
  dc->SetBkMode(oldMode);
}

/// The way from an anchor to the border that is painted of its state, in units of `perModel` to a
/// model unit; nothing for an end that doesn't stand on its anchor.
POINT Transition::ReachTo(const State* state, const AnchorKey& key, POINT end, int perModel) const {
  const POINT* anchor = state != nullptr ? state->AnchorAt(key) : nullptr;
  if (anchor == nullptr || *anchor != end) return {};
  const RECT whole = view->ToLogical(state->GetBounds());
  const RECT painted = state->GetPaintedBorder();
  const auto inUnits = [perModel](std::int32_t logical) {
    return RoundHalfAway(static_cast<double>(logical) * perModel / ChartView::kLogicalPerModel);
  };
  // The right and the lower edge of a shape are not a part of it.
  switch (key.side) {
    case SIDE_LEFT: return {inUnits(SubSat(painted.left, whole.left)), 0};
    case SIDE_TOP: return {0, inUnits(SubSat(painted.top, whole.top))};
    case SIDE_RIGHT: return {inUnits(SubSat(painted.right, whole.right)) - 1, 0};
    case SIDE_BOTTOM: return {0, inUnits(SubSat(painted.bottom, whole.bottom)) - 1};
    default: return {};
  }
}

RoutePainter::Reach Transition::ReachOfEnds(int perModel) const {
  return {ReachTo(source, sourceKey, chain.Head()->start, perModel),
          ReachTo(target, targetKey, chain.Tail()->end, perModel)};
}

/// The ends reach beyond the region, into their states, and the slants of the arrow head are
/// smoothed into the pixels beside it.
void Transition::InvalidateEnds() {
  const POINT tip = ToClient(chain.Tail()->end);
  const POINT base = RoutePainter::ArrowBase(ToClient(chain.Tail()->start), tip);
  const RECT head = NormalizeRect({base.x, base.y, tip.x, tip.y});
  view->InvalidateRect(InflateRect(head, kEndReach));
  for (const POINT end : {chain.Head()->start, chain.Tail()->end}) {
    view->InvalidateRect(InflateRect(RectAt(ToClient(end)), kEndReach));
  }
}

/// The handles that show in the client area, in chain order.
std::vector<RECT> Transition::VisibleHandles() const {
  const RECT client = view->GetClientRect();
  std::vector<RECT> handles;
  for (const Link* link = chain.Head(); link != nullptr; link = link->next) {
    const RECT handle = link->GetHandleRect();
    if (!IsRectEmpty(IntersectRect(handle, client))) handles.push_back(handle);
  }
  return handles;
}

/// The handles come or go, and with them the marks that tie the message to the route.
void Transition::OnSelectionChanged() {
  const std::vector<RECT> handles = VisibleHandles();
  if (handles.size() <= kMaxSingleHandles) {
    for (const RECT& handle : handles) view->InvalidateRect(handle);
  } else {
    RECT around;
    for (const RECT& handle : handles) around = UnionRect(around, handle);
    view->InvalidateRect(around);
  }
  if (mesg == nullptr) return;
  InvalidateLabel();
  view->InvalidateRect(mesg->GetStickHandle());
}

/// `offset` is less the scroll position, model units.
void Transition::ShowGhost(POINT offset) {
  if (!stamp.IsActive()) {
    NullDC reference;
    GhostRecording recording(reference, view->GetClientRect());
    DrawRoute(&recording, &DrawResources::Instance().rubberPen);
    stamp.SetMetafile(recording.Close());
  }
  stamp.Show(view->ToDevice(view->AddScroll(offset)), *view);
}

}  // namespace morvane
