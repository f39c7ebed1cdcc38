#pragma once

#include <vector>

#include "drawing/Geometry.h"
#include "platform/Message.h"
#include "platform/SharedText.h"

namespace morvane {

class LayoutMgr;
class Shape;

/// The arrow keys on what is selected: they move it by a model unit, or by a step of the grid with
/// Shift, and with Control they size it by its right and lower edge. The same key on the same
/// objects, again and again, is one step to undo.
class Nudge {
 public:
  explicit Nudge(LayoutMgr& view) : view(view) {}

  /// False, with nothing done, for another key and where nothing is selected.
  bool TakesKey(VirtualKey key, unsigned flags);

 private:
  /// What was done last, and the snapshot that came of it.
  struct Last {
    VirtualKey key = VirtualKey::Other;
    unsigned flags = 0;
    std::vector<std::int32_t> ids;
    SharedText step;
  };

  void Move(POINT way, unsigned flags);
  void Resize(POINT way);
  void Keep(VirtualKey key, unsigned flags);

  LayoutMgr& view;
  Last last;
};

}  // namespace morvane
