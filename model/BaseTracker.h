#pragma once

#include "drawing/Geometry.h"

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

  /// True when the drag ended with the button and with a result; false when it was cancelled or the
  /// mouse was lost, and at once while something else, as a tool that is placed, holds the mouse.
  bool Track(ChartView* view);

  /// The button came up: takes the feedback away and gives the result of `Track`.
  virtual bool Finish(POINT& point, CDC* dc) = 0;
  /// The pointer stands at a point, after the callback.
  virtual void Move(POINT& point, CDC* dc) = 0;
  /// The drag was given up: takes the feedback away.
  virtual void Cancel(CDC* dc) = 0;

 protected:
  BaseTracker(void* context, Callback callback) : context(context), callback(callback) {}
  /// Draws connected lines so that a second drawing takes them away.
  static void Toggle(CDC& dc, const POINT* points, int count);

  bool shown = false;  ///< something is on the screen and needs erasing

 private:
  void* context;
  Callback callback;
};
