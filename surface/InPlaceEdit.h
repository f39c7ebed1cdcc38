#pragma once

#include <cstdint>
#include <memory>

namespace morvane {

class LayoutMgr;
class ModelMgr;
class Shape;

/// The editing of a name, an event or a note where it stands on the chart. It goes on while the
/// user types; whatever else the user does with the chart ends it first and takes the text over.
class InPlaceEdit {
 public:
  explicit InPlaceEdit(LayoutMgr& view) : view(view) {}

  /// The shape that has the texts of another: a transition leaves them to its message.
  static Shape& HolderOf(Shape& shape);
  /// Opens a box over the text of a shape, which is scrolled into sight; false for a shape that has
  /// no text to edit in place. A transition has that of its message.
  bool Begin(Shape& shape);
  bool IsRunning() const { return running; }
  /// The chart was scrolled: the box stays on its shape.
  void Follow();
  /// Closes the box. What was typed becomes a step to undo, or is given up.
  void End(bool keep);

 private:
  /// The shape, unless it has gone.
  Shape* Target() const;

  LayoutMgr& view;
  bool running = false;
  std::weak_ptr<ModelMgr> model;
  std::int32_t shapeId = 0;
};

}  // namespace morvane
