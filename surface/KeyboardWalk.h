#pragma once

#include <cstdint>
#include <vector>

namespace morvane {

class LayoutMgr;
class Shape;

/// Goes through the objects of a chart by the keyboard, in reading order. What it comes to is
/// selected and scrolled into sight.
class KeyboardWalk {
 public:
  explicit KeyboardWalk(LayoutMgr& view) : view(view) {}

  /// Goes to the next object or back to the one before, round at the end; with nothing selected to
  /// the first or the last one.
  void Step(bool forward);
  /// The object that was selected last stays selected while the walk goes on, or no longer does.
  void ToggleKept();
  /// The object that was selected last; null for none.
  Shape* Current() const;

 private:
  std::vector<Shape*> StillKept() const;

  LayoutMgr& view;
  std::vector<std::int32_t> kept;  ///< ids, as long as those objects are selected
};

}  // namespace morvane
