#pragma once

#include <optional>

#include "drawing/Geometry.h"
#include "model/GroupMove.h"

namespace morvane {

class ModelMgr;
class Shape;

/// A drag of the selection, from its press on. While the setting or the Alt key says so, states
/// take their contents along; Alt counts if it was down at the press or is down now. Offsets are in
/// model units.
class SelectionMove {
 public:
  /// `dragged` shows by itself where it would go; null for none. `flags` come with the press.
  SelectionMove(ModelMgr& model, unsigned flags, const Shape* dragged = nullptr);
  /// Nothing shows any more where it would go.
  ~SelectionMove();
  SelectionMove(const SelectionMove&) = delete;
  SelectionMove& operator=(const SelectionMove&) = delete;

  /// Limits an offset for all and shows where they would go; gives what is left of it.
  POINT Show(POINT offset);
  void Move(POINT offset);

 private:
  const GroupMove& Moving();

  ModelMgr& model;
  const Shape* dragged;
  bool always;
  GroupMove alone;
  std::optional<GroupMove> withContents;  ///< once it is asked for
  const GroupMove* shown = nullptr;
};

}  // namespace morvane
