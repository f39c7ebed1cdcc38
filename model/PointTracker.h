#pragma once

#include "model/BaseTracker.h"

namespace morvane {

/// Draws a line from a fixed point to the pointer, or nothing: then it only runs the loop and the
/// callback.
class PointTracker : public BaseTracker {
 public:
  /// The caller sets the points afterwards.
  PointTracker(void* context, Callback callback, bool rubberLine)
      : BaseTracker(context, callback), rubberLine(rubberLine) {}

  /// Always true. `movingPoint` stays as the last move left it, with what the callback made of it.
  bool Finish(POINT& point, CDC* dc) override;
  void Move(POINT& point, CDC* dc) override;

  POINT fixedPoint;
  POINT movingPoint;  ///< the result of the drag

 private:
  bool rubberLine;
};

}  // namespace morvane
