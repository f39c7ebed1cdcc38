#include "model/CRectTracker.h"

#include <algorithm>
#include <array>

#include "drawing/CDC.h"
#include "platform/CWnd.h"
#include "platform/DragThreshold.h"
#include "platform/FeedbackDC.h"
#include "platform/ModalLoop.h"

namespace morvane {

namespace {

/// A handle is taken from so far outside the rectangle, too, pixels.
constexpr std::int32_t kHandleReach = 3;

/// The rectangle with the sides of a handle, or all of it, moved by a distance.
RECT Dragged(const RECT& r, int handle, POINT by) {
  struct Sides {
    bool left, top, right, bottom;
  };
  constexpr std::array<Sides, CRectTracker::kInside + 1> table{
      Sides{true, true, false, false},  Sides{false, true, true, false},
      Sides{false, false, true, true},  Sides{true, false, false, true},
      Sides{false, true, false, false}, Sides{false, false, true, false},
      Sides{false, false, false, true}, Sides{true, false, false, false},
      Sides{true, true, true, true}};
  const Sides& moves = table[static_cast<std::size_t>(handle)];
  return {moves.left ? AddSat(r.left, by.x) : r.left, moves.top ? AddSat(r.top, by.y) : r.top,
          moves.right ? AddSat(r.right, by.x) : r.right,
          moves.bottom ? AddSat(r.bottom, by.y) : r.bottom};
}

}  // namespace

RECT CRectTracker::GetHandleRect(int handle) const {
  const RECT r = GetTrueRect();
  const std::int32_t size = handleSize;
  const std::int32_t middleX = SubSat(Middle(r.left, r.right), size / 2);
  const std::int32_t middleY = SubSat(Middle(r.top, r.bottom), size / 2);
  const std::int32_t rightX = SubSat(r.right, size);
  const std::int32_t bottomY = SubSat(r.bottom, size);
  const std::array<POINT, kHandleCount> corners{POINT{r.left, r.top},    POINT{rightX, r.top},
                                                POINT{rightX, bottomY},  POINT{r.left, bottomY},
                                                POINT{middleX, r.top},   POINT{rightX, middleY},
                                                POINT{middleX, bottomY}, POINT{r.left, middleY}};
  const POINT p = corners[static_cast<std::size_t>(handle)];
  return {p.x, p.y, AddSat(p.x, size), AddSat(p.y, size)};
}

void CRectTracker::Draw(CDC& dc) const {
  const unsigned mask = GetHandleMask();
  for (int handle = 0; handle < kHandleCount; ++handle) {
    if ((mask & (1U << handle)) != 0) dc.FillSolidRect(GetHandleRect(handle), 0x000000);
  }
}

int CRectTracker::HitTest(POINT p) const {
  const RECT r = GetTrueRect();
  if (!PtInRect(InflateRect(r, kHandleReach), p)) return kNothing;
  const POINT nearest{std::clamp(p.x, r.left, std::max(r.left, r.right - 1)),
                      std::clamp(p.y, r.top, std::max(r.top, r.bottom - 1))};
  const unsigned mask = GetHandleMask();
  for (int handle = 0; handle < kHandleCount; ++handle) {
    if ((mask & (1U << handle)) != 0 && PtInRect(GetHandleRect(handle), nearest)) return handle;
  }
  return PtInRect(r, p) ? kInside : kNothing;
}

bool CRectTracker::SetCursor(CWnd& window, POINT p) const {
  constexpr std::array<Cursor, kInside + 1> cursors{
      Cursor::SizeNWSE, Cursor::SizeNESW, Cursor::SizeNWSE, Cursor::SizeNESW, Cursor::SizeNS,
      Cursor::SizeWE,   Cursor::SizeNS,   Cursor::SizeWE,   Cursor::SizeAll};
  const int hit = HitTest(p);
  if (hit == kNothing) return false;
  window.SetCursor(cursors[static_cast<std::size_t>(hit)]);
  return true;
}

bool CRectTracker::Track(CWnd& window, POINT p) {
  const int hit = HitTest(p);
  return hit != kNothing && TrackHandle(window, hit, p);
}

bool CRectTracker::TrackRubberBand(CWnd& window, POINT p) {
  constexpr int bottomRight = 2;
  rect = RectAt(p);
  return TrackHandle(window, bottomRight, p) && !IsRectEmpty(GetTrueRect());
}

bool CRectTracker::TrackHandle(CWnd& window, int handle, POINT p) {
  if (window.HasCapture()) return false;
  const RECT original = rect;
  DragThreshold threshold(window, p);
  bool cancelled = false;
  const ModalLoop loop;
  window.SetCapture();
  window.UpdateWindow();
  for (bool tracking = true; tracking;) {
    const Message message = window.NextMessage();
    const bool lost = message.kind == Message::Kind::Quit || !window.HasCapture();
    switch (lost ? Message::Kind::Quit : message.kind) {
      case Message::Kind::MouseMove:
        if (threshold.Passes(message.point))
          DragTo(window, Dragged(original, handle, message.point - p), handle);
        break;
      case Message::Kind::LButtonUp:
        // A click is no drag, whatever the limits would make of the rectangle.
        if (threshold.IsPassed())
          DragTo(window, Dragged(original, handle, message.point - p), handle);
        tracking = false;
        break;
      case Message::Kind::Quit:
      case Message::Kind::RButtonDown: cancelled = true; break;
      case Message::Kind::KeyDown:
        cancelled = message.key == VirtualKey::Escape;
        if (!cancelled) window.DispatchMessage(message);
        break;
      default: window.DispatchMessage(message);
    }
    if (cancelled) tracking = false;
  }
  if (window.HasCapture()) window.ReleaseCapture();
  DrawTrackerRect({}, window);
  if (cancelled) rect = original;
  return rect != original;
}

void CRectTracker::DragTo(CWnd& window, const RECT& dragged, int handle) {
  RECT adjusted = dragged;
  AdjustRect(handle, adjusted);
  if (adjusted == rect) return;
  rect = adjusted;
  DrawTrackerRect(NormalizeRect(rect), window);
}

void CRectTracker::DrawTrackerRect(const RECT& frame, CWnd& window) {
  if (frame == shownFrame) return;
  shownFrame = frame;
  if (IsRectEmpty(frame)) return feedback.Hide();
  FeedbackDC(feedback, window).DrawFocusRect(frame);
}

}  // namespace morvane
