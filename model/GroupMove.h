#pragma once

#include <vector>

#include "drawing/Geometry.h"
#include "model/Collection.h"

namespace morvane {

class ModelMgr;
class Shape;

/// What moves as one: the selection, and with it each route whose two states move, with its
/// message. All of it goes the same way, which is limited once for all. Offsets are in model units.
class GroupMove {
 public:
  /// `more` moves along with the selection.
  explicit GroupMove(ModelMgr& model, const std::vector<Shape*>& more = {});
  /// These alone move, with what comes along by itself, whatever is selected.
  static GroupMove Of(ModelMgr& model, const std::vector<Shape*>& shapes);

  /// All that moves.
  std::vector<Shape*> Shapes() const;
  /// Adds a shape unless it's there.
  void Add(Shape* shape);
  bool Contains(const Shape* shape) const;

  /// The part of an offset by which nothing gets beyond an edge of the chart; what stands outside
  /// already gets no farther away.
  POINT Limit(POINT offset) const;
  /// Shows of all but one where they would go; `EndGhost` ends that.
  void ShowGhost(POINT offset, const Shape* except) const;
  void EndGhost(const Shape* except) const;
  /// Moves all by as much of the offset as the limit allows.
  void Move(POINT offset) const;

 private:
  GroupMove(const std::vector<Shape*>& first, const std::vector<Shape*>& more, ModelMgr& model);

  ModelMgr& model;
  Collection members;
};

}  // namespace morvane
