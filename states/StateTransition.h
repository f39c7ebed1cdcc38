#pragma once

#include "model/ComplexShape.h"

namespace morvane {

class EndableState;
class StartableState;

/// A transition as the states at its ends know it.
class StateTransition : public ComplexShape {
 public:
  using ComplexShape::ComplexShape;

  /// The states at the ends; null where an end is free.
  StartableState* GetSource() const { return source; }
  EndableState* GetTarget() const { return target; }
  /// Both ends are at one state.
  bool IsLoop() const;
  void SetSource(StartableState* state) { source = state; }
  void SetTarget(EndableState* state) { target = state; }

  /// The state's anchors have changed: the end follows the anchor of its key. With a key that names
  /// none it stays.
  virtual void OnSourceMoved() = 0;
  virtual void OnTargetMoved() = 0;
  /// The same for a loop, whose both ends have moved.
  virtual void OnBothEndsMoved() = 0;
  /// The state is being destroyed: the end is free and stays where it is.
  virtual void DetachSource() = 0;
  virtual void DetachTarget() = 0;

 protected:
  StartableState* source = nullptr;
  EndableState* target = nullptr;
};

}  // namespace morvane
