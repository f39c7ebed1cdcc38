// The painting of a transition: on the window, on paper and pictures, and as a ghost.

#include "connectors/HeadLink.h"
#include "connectors/Mesg.h"
#include "connectors/RoutePainter.h"
#include "connectors/TailLink.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"

namespace morvane {

namespace {

/// More handles than this are repainted as one rectangle.
constexpr std::size_t kMaxSingleHandles = 100;

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
  const Mapping logical = dc.SetMapping({});
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
  RoutePainter(*dc, [this](POINT p) { return ToClient(p); }).Paint(RoutePoints());
  dc->SelectPen(oldPen);
  dc->SetBkMode(oldMode);
}

void Transition::PrintRoute(CDC* dc) const {
  const DrawResources& resources = DrawResources::Instance();
  const bool attached = source != nullptr && target != nullptr;
  const BkMode oldMode = dc->SetBkMode(BkMode::Transparent);
  const CPen oldPen =
      dc->SelectPen(attached ? resources.printRoutePen : resources.printFreeRoutePen);
  RoutePainter(*dc, [this](POINT p) { return view->ToLogical(p); }).Paint(RoutePoints());
  dc->SelectPen(oldPen);
  dc->SetBkMode(oldMode);
}

/// The anchors, the stub points, and between them the corners where the route turns: a file can
/// hold links that go on in one line, or back on it.
std::vector<POINT> Transition::RoutePoints() const {
  std::vector<POINT> points{chain.Head()->start, chain.Head()->end};
  const auto add = [&points](POINT p) {
    const auto inLine = [&](std::int32_t POINT::*c) {
      return points.back().*c == p.*c && points[points.size() - 2].*c == p.*c;
    };
    while (points.size() > 2 && (inLine(&POINT::x) || inLine(&POINT::y))) points.pop_back();
    points.push_back(p);
  };
  for (const Link* link = chain.Head()->next; link != chain.Tail(); link = link->next) {
    add(link->end);
  }
  points.push_back(chain.Tail()->end);
  return points;
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
