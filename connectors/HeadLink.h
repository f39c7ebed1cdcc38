#pragma once

#include "connectors/Link.h"

namespace morvane {

/// The stub at the source: `start` is the anchor, `end` the stub point. It never gives way to its
/// neighbour but closes a gap with new links.
class HeadLink : public Link {
 public:
  explicit HeadLink(const Transition* owner);

  /// Stores the ends; equal ones change nothing.
  void SetEnds(const POINT& newStart, const POINT& newEnd) override;
  void OnNeighbourMoved(Link* moved) override;
  void GetDragLine(const POINT& point, POINT& outStart, POINT& outEnd) const override;
  RECT GetHandleRect() const override { return HandleAround(start); }
  /// Moves the whole chain, which keeps its shape: at the limit of the coordinates it stops.
  void Offset(const POINT& delta) override;

  /// The source end moves to a new anchor and stub point; the chain follows by its local rules.
  void MoveEnds(const POINT& newStart, const POINT& newEnd);
  /// Deletes every link behind this one, the tail included.
  void DestroyFollowing();
};

}  // namespace morvane
