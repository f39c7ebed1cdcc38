#include "model/RectTracker.h"

#include "model/RectShape.h"

namespace morvane {

unsigned RectTracker::GetHandleMask() const { return owner.GetHandleMask(); }

void RectTracker::AdjustRect(int handle, RECT& dragged) {
  owner.AdjustRect(static_cast<unsigned>(handle), dragged);
}

}  // namespace morvane
