#pragma once

#include "platform/CWnd.h"

namespace morvane {

class LayoutMgr;
class Shape;

/// Receives the commands of an object's context menu and hands them to that object.
class HiddenWindow {
 public:
  explicit HiddenWindow(LayoutMgr* view) : view(view) {}

  /// The object that gets the commands; it isn't owned.
  void SetTarget(Shape* shape) { target = shape; }
  /// Opens the context menu of an object at a screen point and carries out what is chosen.
  void ShowMenu(Shape* shape, POINT screen);
  /// Whether a command of the menu can be given, and its check mark, for the target.
  CommandState OnUpdateCommand(unsigned id) const;
  /// Carries a command out, on the target or on the view, and takes an undo snapshot. The target
  /// may have deleted itself afterwards.
  void OnCommand(unsigned id);

 private:
  LayoutMgr* view;
  Shape* target = nullptr;
};

}  // namespace morvane
