#include "model/CRectTracker.h"
#include "model/ChartView.h"
#include "model/ModelMgr.h"
#include "platform/CWnd.h"

namespace morvane {

// What a press of the mouse means by what lies under it. All points are device pixels.

namespace {

/// The corners of a rubber band have no handles.
constexpr int kNoHandles = 0;

}  // namespace

bool ModelMgr::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  Shape* hit = ObjectAt({x, y});
  const bool withControl = (flags & MK_CONTROL) != 0;
  const bool withShift = (flags & MK_SHIFT) != 0;
  if (withControl && (hit == nullptr || !hit->TakesPressWithControl()))
    return TrackRubberBand(x, y);
  const auto connection = view->BeginConnection(flags, {x, y});
  if (connection == ChartView::ConnectionPress::Used) return true;
  const bool clicked = connection == ChartView::ConnectionPress::Click;
  if (hit == nullptr) {
    if (!clicked && TrackRubberBand(x, y)) return true;
    DeselectAll();
    return false;
  }
  if (!selection.Contains(hit)) {
    if (!withShift) DeselectAll();
  } else if (withShift) {
    selection.Remove(hit);
    hit->OnBroadcast(BROADCAST_DESELECTED, nullptr);
    return true;
  }
  // A click has used up the release of the button. While the view holds the mouse no drag starts
  // that would wait for it.
  if (clicked) view->SetCapture();
  hit->OnLButtonDown(flags, x, y);
  if (clicked) view->ReleaseCapture();
  return true;
}

bool ModelMgr::OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y) {
  Shape* hit = ObjectAt({x, y});
  if (hit == nullptr) return false;
  hit->OnLButtonDblClk(flags, x, y);
  return true;
}

bool ModelMgr::OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) {
  Shape* hit = ObjectAt(view->GetCursorPos());
  return hit != nullptr && hit->OnSetCursor(window, hitTest, message);
}

bool ModelMgr::OnContextMenu(CWnd* /*window*/, std::int32_t x, std::int32_t y) {
  Shape* hit = ObjectAt({x, y});
  if (hit == nullptr) return false;
  const POINT screen = view->ClientToScreen({x, y});
  return ShowObjectMenu(hit, screen.x, screen.y);
}

bool ModelMgr::ShowObjectMenu(Shape* shape, std::int32_t screenX, std::int32_t screenY) {
  // What the menu copies or deletes is what the user points at.
  if (!selection.Contains(shape)) SelectOnly(shape);
  view->ShowObjectMenu(shape, {screenX, screenY});
  return true;
}

bool ModelMgr::TrackRubberBand(std::int32_t x, std::int32_t y) {
  CRectTracker band(kNoHandles);
  if (!band.TrackRubberBand(*view, {x, y})) return false;
  const std::vector<Shape*> found = FindShapesInRect(band.GetTrueRect());
  if (found.empty()) return true;
  for (Shape* shape : found) selection.Add(shape);
  selection.Broadcast(BROADCAST_SELECTED, nullptr, nullptr);
  return true;
}

}  // namespace morvane
