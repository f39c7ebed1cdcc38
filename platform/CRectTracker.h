#pragma once

#include "platform/Geometry.h"
#include "platform/Message.h"

class CDC;
class CWnd;

/// A rectangle in device pixels with eight handles inside its edges. Handles are numbered
/// clockwise from the corners: 0 top left, 1 top right, 2 bottom right, 3 bottom left, 4 top, 5
/// right, 6 bottom, 7 left.
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

  virtual unsigned GetHandleMask() const { return kAllHandles; }

  RECT rect;

 private:
  int handleSize;
};
