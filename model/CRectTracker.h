#pragma once

#include "drawing/Geometry.h"
#include "platform/Feedback.h"
#include "platform/Message.h"

namespace morvane {

class CDC;
class CWnd;

/// A rectangle in device pixels that the user can drag, with eight handles inside its edges.
/// Handles are numbered clockwise from the corners: 0 top left, 1 top right, 2 bottom right, 3
/// bottom left, 4 top, 5 right, 6 bottom, 7 left.
class CRectTracker {
 public:
  static constexpr int kHandleCount = 8;
  static constexpr int kInside = 8;
  static constexpr int kNothing = -1;
  static constexpr unsigned kAllHandles = 0xFF;

  explicit CRectTracker(int handleSize) : handleSize(handleSize) {}
  virtual ~CRectTracker() = default;
  CRectTracker(const CRectTracker&) = delete;
  CRectTracker& operator=(const CRectTracker&) = delete;

  /// Paints the allowed handles as black squares.
  void Draw(CDC& dc) const;
  /// The rectangle, normalised.
  RECT GetTrueRect() const { return NormalizeRect(rect); }
  RECT GetHandleRect(int handle) const;
  /// A handle's number, `kInside` or `kNothing`.
  int HitTest(POINT p) const;
  /// Chooses the cursor for what the pointer hits; false, with nothing set, outside.
  bool SetCursor(CWnd& window, POINT p) const;

  /// A modal loop until the left button comes up: a handle drags its side or corner, the inside
  /// the whole rectangle. False if the point hits nothing or the window holds the mouse already, if
  /// Escape or the right button restored the rectangle, and if it didn't change, as by a click.
  bool Track(CWnd& window, POINT p);
  /// The same with a new rectangle that grows from a point in any direction. False if the pointer
  /// made none.
  bool TrackRubberBand(CWnd& window, POINT p);
  /// Shows a focus frame instead of the one that this tracker showed last; with an empty rectangle
  /// none.
  void DrawTrackerRect(const RECT& frame, CWnd& window);

  virtual unsigned GetHandleMask() const { return kAllHandles; }
  /// Limits the rectangle that a drag has made, before it is shown.
  virtual void AdjustRect(int /*handle*/, RECT& /*dragged*/) {}

  RECT rect;

 private:
  bool TrackHandle(CWnd& window, int handle, POINT p);
  void DragTo(CWnd& window, const RECT& dragged, int handle);

  int handleSize;
  RECT shownFrame;
  Feedback feedback;
};

}  // namespace morvane
