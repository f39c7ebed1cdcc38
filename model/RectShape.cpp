#include "model/RectShape.h"

#include <algorithm>

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/SelectionMove.h"

namespace morvane {

namespace {

/// How far around a rectangle it answers to a pointer that is near, model units.
constexpr std::int32_t kNearReach = 2;
/// The least left and top of a rectangle that the user moves, model units.
constexpr std::int32_t kFirstUnit = 1;
/// Marks on the edge reach so far beyond the rectangle, device pixels.
constexpr std::int32_t kMarkReach = 3;

bool HasSizeOf(const RECT& a, const RECT& b) {
  return Width(a) == Width(b) && Height(a) == Height(b);
}

}  // namespace

RectShape::RectShape() = default;

RectShape::RectShape(std::int32_t id, ChartView* view, const RECT& rect, Layer layer)
    : Shape(id, view, layer), rect(NormalizeRect(rect)) {}

RectShape::~RectShape() = default;

void RectShape::Write(ModelStream& stream) const {
  Shape::Write(stream);
  stream << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom << '\n';
}

void RectShape::Read(ModelStream& stream) {
  Shape::Read(stream);
  RECT stored;
  stream >> stored.left >> stored.top >> stored.right >> stored.bottom;
  SkipLine(stream.In());
  rect = NormalizeRect(stored);
}

void RectShape::DrawMarks(CDC& window) {
  if (!tracker || !IsInSelection()) return;
  tracker->rect = DeviceRect();
  tracker->Draw(window);
}

void RectShape::GetExtent(std::int32_t& right, std::int32_t& bottom) const {
  right = rect.right;
  bottom = rect.bottom;
}

RECT RectShape::DeviceRect() const { return view->ToClient(rect); }

bool RectShape::HitTest(const POINT& client) const {
  return PtInRect(DeviceRect(), client) || IsOnHandle(client);
}

bool RectShape::HitTestNear(const POINT& model) const {
  return PtInRect(InflateRect(rect, kNearReach), model);
}

bool RectShape::IsInsideRect(const RECT& model) const {
  return PtInRect(model, TopLeft(rect)) && PtInRect(model, BottomRight(rect));
}

void RectShape::Invalidate() { view->InvalidateRect(DeviceRect()); }

RECT RectShape::GetPaintBounds() const {
  // Anchor marks and the rounding of edges reach a little beyond the rectangle at any zoom.
  constexpr std::int32_t margin = 2;
  return InflateRect(rect, margin);
}

RECT RectShape::GetMoveBounds() const {
  return {SubSat(rect.left, kFirstUnit), SubSat(rect.top, kFirstUnit), rect.right, rect.bottom};
}

void RectShape::OnPlaced() { tracker.emplace(*this); }

unsigned RectShape::GetHandleMask() const { return CRectTracker::kAllHandles; }

void RectShape::OnRectChanged(const RECT& /*old*/, bool /*sized*/) {}

void RectShape::ShowHandles(bool show) {
  if (!tracker) return;
  if (show) tracker->rect = DeviceRect();
  const unsigned mask = tracker->GetHandleMask();
  for (int handle = 0; handle < CRectTracker::kHandleCount; ++handle) {
    if ((mask & (1U << handle)) != 0) view->InvalidateRect(tracker->GetHandleRect(handle));
  }
  if (!show) tracker->rect = {};
}

RECT RectShape::PlaceOnChart(const RECT& r) {
  const RECT target = NormalizeRect(r);
  return target + POINT{std::max(SubSat(kFirstUnit, target.left), 0),
                        std::max(SubSat(kFirstUnit, target.top), 0)};
}

void RectShape::MoveTo(const RECT& r) {
  if (r != rect) ChangeRect(PlaceOnChart(r), false);
}

void RectShape::ResizeTo(const RECT& r) {
  if (r == rect) return;
  ChangeRect(NormalizeRect(r), true);
}

void RectShape::ChangeRect(const RECT& r, bool sized) {
  const RECT old = rect;
  rect = r;
  OnRectChanged(old, sized);
  view->InvalidateModelRect(InflateRect(view->ToClient(old), kMarkReach),
                            InflateRect(DeviceRect(), kMarkReach));
}

void RectShape::SnapDeviceRect(RECT& device) const {
  const std::int64_t width = Width(device);
  const std::int64_t height = Height(device);
  const POINT least = view->ToClient(POINT{kFirstUnit, kFirstUnit});
  device.left = std::max(device.left, least.x);
  device.top = std::max(device.top, least.y);
  device.right = Saturate(device.left + width);
  device.bottom = Saturate(device.top + height);
  device = view->ToDevice(view->ToModel(device));
}

/// The sides that a handle pulls stop at the minimum size, or at the size of a shape that a file
/// holds smaller, and off the chart's left and top edge. The others stand still.
void RectShape::LimitResize(RECT& device) const {
  const RECT old = DeviceRect();
  const std::int32_t minimum = view->ToDevice(kMinimumSize);
  const POINT least = view->ToClient(POINT{kFirstUnit, kFirstUnit});
  const std::int32_t lastLeft = std::max(old.left, SubSat(old.right, minimum));
  const std::int32_t lastTop = std::max(old.top, SubSat(old.bottom, minimum));
  const std::int32_t firstRight = std::min(old.right, AddSat(old.left, minimum));
  const std::int32_t firstBottom = std::min(old.bottom, AddSat(old.top, minimum));
  if (device.left != old.left) device.left = std::min(std::max(device.left, least.x), lastLeft);
  if (device.top != old.top) device.top = std::min(std::max(device.top, least.y), lastTop);
  device.right = std::max(device.right, firstRight);
  device.bottom = std::max(device.bottom, firstBottom);
  device = view->ToDevice(view->ToModel(device));
}

bool RectShape::IsOnHandle(POINT client) const {
  if (!tracker || !IsInSelection()) return false;
  // The shape may have moved since it was painted.
  tracker->rect = DeviceRect();
  const int hit = tracker->HitTest(client);
  return hit != CRectTracker::kNothing && hit != CRectTracker::kInside;
}

void RectShape::OnBroadcast(int op, void* arg) {
  switch (op) {
    case BROADCAST_DESELECTED: ShowHandles(false); break;
    case BROADCAST_SELECTED: ShowHandles(true); break;
    // Whoever moves several has limited the way for all of them.
    case BROADCAST_MOVE: ChangeRect(rect + *static_cast<const POINT*>(arg), false); break;
    case BROADCAST_SHOW_GHOST: ShowGhost(*static_cast<const POINT*>(arg)); break;
    case BROADCAST_END_GHOST:
      if (!tracker) break;
      tracker->DrawTrackerRect({}, *view);
      // Back from the ghost to where the handles are, for the next change of the selection.
      tracker->rect = IsInSelection() ? DeviceRect() : RECT{};
      break;
    default: break;
  }
}

/// `offset` is less the scroll position, model units.
void RectShape::ShowGhost(POINT offset) {
  if (!tracker) return;
  tracker->rect = view->ToDevice(rect + offset);
  tracker->DrawTrackerRect(tracker->rect, *view);
}

void RectShape::OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) {
  if (!IsInSelection()) {
    view->GetSelection().Add(this);
    ShowHandles(true);
  }
  if (!tracker) return;
  // The shape may have moved since it was painted.
  tracker->rect = DeviceRect();
  SelectionMove move(*mgr, flags, this);
  drag = &move;
  const bool changed = tracker->Track(*view, {x, y});
  drag = nullptr;
  const RECT dropped = view->AddScroll(view->ToModel(tracker->GetTrueRect()));
  if (changed && HasSizeOf(dropped, rect)) {
    move.Move(TopLeft(dropped) - TopLeft(rect));
  } else if (changed) {
    ResizeTo(dropped);
  }
}

/// A drag of the inside moves the shape, and what moves along shows where it would go.
void RectShape::AdjustRect(unsigned handle, RECT& device) {
  if (handle != CRectTracker::kInside) return LimitResize(device);
  const POINT offset = drag->Show(view->ToAbsolute(TopLeft(device)) - TopLeft(rect));
  device = view->ToClient(rect + offset);
}

bool RectShape::OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
  return tracker && tracker->SetCursor(*view, view->GetCursorPos());
}

}  // namespace morvane
