#include "surface/RectTracker.h"

#include "model/RectShape.h"

unsigned RectTracker::GetHandleMask() const { return owner.GetHandleMask(); }
