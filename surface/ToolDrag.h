#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class LayoutMgr;

/// The drawing tool that the user has chosen, and its way to the place where an object comes of it.
/// While it is dragged, its picture follows the pointer and the view holds the mouse; outside of
/// the view it waits for the pointer to come back.
class ToolDrag {
 public:
  explicit ToolDrag(LayoutMgr& view) : view(view) {}

  /// The command of the tool that is chosen; 0 for none.
  unsigned Tool() const { return tool; }
  bool IsRunning() const { return toolDragging; }
  void Choose(unsigned id);
  void BeginToolDrag();
  /// The pointer is at a client point.
  void Move(POINT client);
  /// The button came up at a client point. In the view an object of the tool comes there, and it
  /// gives true; the tool is put away in either case.
  bool Drop(POINT client);
  void EndToolDrag();

 private:
  LayoutMgr& view;
  unsigned tool = 0;
  bool toolDragging = false;
};

}  // namespace morvane
