#pragma once

#include "model/BaseTracker.h"

namespace morvane {

/// Shows a segment that moves parallel to itself, joined to its old ends. A horizontal segment
/// moves up and down, any other one left and right.
class LineTracker : public BaseTracker {
 public:
  /// The caller sets the points afterwards, the moved ends equal to the ends.
  LineTracker(void* context, Callback callback) : BaseTracker(context, callback) {}

  /// True if the moved ends, as the last move left them, differ from the ends.
  bool Finish(POINT& point, CDC* dc) override;
  void Move(POINT& point, CDC* dc) override;

  POINT start;
  POINT end;
  POINT movedStart;
  POINT movedEnd;

 private:
  void MoveTo(POINT point);
};

}  // namespace morvane
