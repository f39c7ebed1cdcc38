#pragma once

#include "model/CRectTracker.h"

namespace morvane {

class RectShape;

/// Shows and drags the handles of a shape; the shape says how far.
class RectTracker : public CRectTracker {
 public:
  static constexpr int kHandleSize = 6;

  explicit RectTracker(RectShape& owner) : CRectTracker(kHandleSize), owner(owner) {}
  unsigned GetHandleMask() const override;
  void AdjustRect(int handle, RECT& dragged) override;

 private:
  RectShape& owner;
};

}  // namespace morvane
