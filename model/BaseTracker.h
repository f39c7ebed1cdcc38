#pragma once

#include <span>

#include "drawing/Geometry.h"

namespace morvane {

class CDC;
class ChartView;

/// The feedback of a mouse drag: a short modal loop that takes the mouse and draws something that
/// follows the pointer. Nothing of the model changes meanwhile. It lives on the stack of a gesture:
/// build it, set its points, call `Track`, read the points. All points are device pixels of the
/// client area.
class BaseTracker {
 public:
  /// Called at each mouse move, before the feedback is drawn; it may change the point.
  using Callback = void (*)(POINT& point, void* context);

  virtual ~BaseTracker() = default;
  BaseTracker(const BaseTracker&) = delete;
  BaseTracker& operator=(const BaseTracker&) = delete;

  /// Runs from a press on. True when the drag ended with the button and with a result; false when
  /// it was cancelled, the mouse was lost or the press stayed a click, and at once while something
  /// else, as a tool that is placed, holds the mouse.
  bool Track(ChartView* view, POINT press);
  /// The button came up before there was a drag.
  bool WasClick() const { return click; }

  // Each of the three gets a blank layer over the picture. What it draws there shows from then on,
  // instead of what showed before.

  /// The button came up: gives the result of `Track`.
  virtual bool Finish(POINT& point, CDC* dc) = 0;
  /// The pointer stands at a point, after the callback: draws the feedback.
  virtual void Move(POINT& point, CDC* dc) = 0;
  /// The drag was given up.
  virtual void Cancel(CDC* /*dc*/) {}

 protected:
  BaseTracker(void* context, Callback callback) : context(context), callback(callback) {}
  /// Draws connected rubber lines.
  static void DrawLines(CDC& dc, std::span<const POINT> points);

 private:
  void* context;
  Callback callback;
  bool click = false;
};

}  // namespace morvane
