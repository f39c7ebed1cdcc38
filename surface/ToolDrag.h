#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class LayoutMgr;

/// The drawing tool that the user has chosen, until an object comes of it. It waits for a click in
/// the chart, or comes from the bar with the button down; over the chart its picture follows the
/// pointer.
class ToolDrag {
 public:
  explicit ToolDrag(LayoutMgr& view) : view(view) {}
  ~ToolDrag();
  ToolDrag(const ToolDrag&) = delete;
  ToolDrag& operator=(const ToolDrag&) = delete;

  /// The command of the tool that is chosen; 0 for none.
  unsigned Tool() const { return tool; }
  bool IsRunning() const { return tool != 0; }
  bool IsKept() const { return kept; }
  /// Chooses a tool, or puts it away if it is chosen already.
  void Choose(unsigned id);
  /// The tool that is chosen stays so until it is put away, however many objects come of it.
  void Keep() { kept = tool != 0; }
  /// The tool that is chosen is dragged with the button down: the view holds the mouse.
  void BeginToolDrag();
  /// The pointer is at a client point.
  void Move(POINT client);
  /// The pointer has left the view. A drag that was interrupted is over.
  void Leave();
  /// The button came up at a client point. In the view an object of the tool comes there, and it
  /// gives true; the tool is put away in either case, but for one that is kept.
  bool Drop(POINT client);
  void EndToolDrag();

 private:
  LayoutMgr& view;
  unsigned tool = 0;
  bool kept = false;
  bool inHand = false;  ///< comes from the bar with the button down
};

}  // namespace morvane
