#pragma once

namespace morvane {

/// An operation that goes to the members of a selection.
enum BroadcastOp : int {
  BROADCAST_DESELECTED = 0,
  BROADCAST_SELECTED = 1,
  BROADCAST_MOVE = 2,        ///< a POINT*, the offset in model units
  BROADCAST_SHOW_GHOST = 4,  ///< a POINT*, offset less scroll position, in model units
  BROADCAST_END_GHOST = 5
};

/// What can be a member of a selection.
class Collectable {
 public:
  Collectable() = default;
  virtual ~Collectable() = default;
  Collectable(const Collectable&) = delete;
  Collectable& operator=(const Collectable&) = delete;

  /// Takes part in an operation on the selection; other numbers than those of `BroadcastOp` have
  /// no effect.
  virtual void OnBroadcast(int op, void* arg) = 0;
};

}  // namespace morvane
