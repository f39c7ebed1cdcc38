#pragma once

#include "connectors/Link.h"

namespace morvane {

/// The stub at the target: `start` is the stub point, `end` the anchor.
class TailLink : public Link {
 public:
  TailLink(Link* prev, const Transition* owner);

  /// Moves to the ends; equal ones change nothing.
  void SetEnds(const POINT& newStart, const POINT& newEnd) override;
  void OnNeighbourMoved(Link* moved) override;
  void GetDragLine(const POINT& point, POINT& outStart, POINT& outEnd) const override;
  RECT GetHandleRect() const override { return HandleAround(end); }

  /// The target end moves to a new stub and anchor point; the chain follows by its local rules.
  void MoveEnds(const POINT& newStart, const POINT& newEnd);
};

}  // namespace morvane
