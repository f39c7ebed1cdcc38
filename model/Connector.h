#pragma once

namespace morvane {

class Connectable;

/// What hangs on the anchors of a `Connectable`.
class Connector {
 public:
  /// The connectable moved: take the new position of each end that is attached to it.
  virtual void OnConnectableMoved(Connectable* moved) = 0;
  /// The connectable is being destroyed: forget each end that is attached to it.
  virtual void OnConnectableGone(Connectable* gone) = 0;
  /// It moves by itself together with what it hangs on.
  virtual bool MovesAlong() const = 0;

 protected:
  ~Connector() = default;
};

}  // namespace morvane
