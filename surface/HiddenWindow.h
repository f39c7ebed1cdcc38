#pragma once

class LayoutMgr;
class Shape;

/// Receives the commands of an object's context menu and hands them to that object.
class HiddenWindow {
 public:
  explicit HiddenWindow(LayoutMgr* view) : view(view) {}

  /// The object that gets the commands; it isn't owned.
  void SetTarget(Shape* shape) { target = shape; }
  /// Carries a command of the menu out on the target and takes an undo snapshot. The target may
  /// have deleted itself afterwards.
  void OnCommand(unsigned id);

 private:
  LayoutMgr* view;
  Shape* target = nullptr;
};
