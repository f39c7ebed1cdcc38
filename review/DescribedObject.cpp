#include "review/DescribedObject.h"

#include <algorithm>

namespace morvane {

RECT DescribedObject::Box() const {
  if (outline.empty()) return {};
  RECT box = RectAt(outline.front());
  for (const POINT p : outline) {
    box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
           std::max(box.bottom, p.y)};
  }
  return box;
}

}  // namespace morvane
