// The mouse on a message: besides what every rectangle does, the green handle in its middle is
// dragged onto the label of the route.

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"
#include "model/PointTracker.h"

namespace morvane {

namespace {

/// How far around the label the rubber line snaps to it, device pixels.
constexpr std::int32_t kSnapReach = 8;

void ForwardStickDrag(POINT& client, void* mesg) { static_cast<Mesg*>(mesg)->OnStickDrag(client); }

}  // namespace

/// A loose box has no label that its handle could be dragged to.
bool Mesg::IsOnStickHandle(POINT client) const {
  return transition != nullptr && IsInSelection() && PtInRect(GetStickHandle(), client);
}

void Mesg::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  const POINT press{x, y};
  if (!IsOnStickHandle(press)) {
    ConnectableRectShape::OnLButtonDown(flags, x, y);
    return;
  }
  PointTracker tracker(this, ForwardStickDrag, true);
  tracker.fixedPoint = tracker.movingPoint = press;
  const bool dropped = tracker.Track(view, press);
  if (dropped && PtInRect(transition->GetLabelRect(), tracker.movingPoint)) Align();
  marker.Hide();
}

void Mesg::OnStickDrag(POINT& client) {
  client = view->ToDevice(view->ToModel(client));
  const RECT near = InflateRect(transition->GetLabelRect(), kSnapReach);
  if (PtInRect(near, client)) {
    client = CentreOf(near);
    marker.Show(client, *view);
  } else {
    marker.Hide();
  }
}

bool Mesg::OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) {
  if (!IsOnStickHandle(view->GetCursorPos())) {
    return ConnectableRectShape::OnSetCursor(window, hitTest, message);
  }
  view->SetCursor(DrawResources::Instance().endHandle);
  return true;
}

}  // namespace morvane
