#pragma once

#include "connectors/ChainRecord.h"
#include "drawing/Geometry.h"

namespace morvane {

class Transition;

/// One piece of the route of a transition. The links of a route form a chain from the source to the
/// target; each knows its own geometry and its two neighbours, and when one moves it tells them.
/// All geometry is in absolute model units, handles are in device pixels of the client area.
///
/// Each link is a heap object that may delete itself in `SetEnds`, `OnNeighbourMoved`, `MoveTo` and
/// `Remove`. So no caller keeps a pointer to it across such a call, and `prev` and `next` are read
/// again afterwards.
class Link {
 public:
  virtual ~Link() = default;
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  /// Takes both ends. A segment whose ends are equal takes itself out of the chain.
  virtual void SetEnds(const POINT& newStart, const POINT& newEnd) = 0;
  /// A neighbour has a new place.
  virtual void OnNeighbourMoved(Link* moved) = 0;
  /// Where the link would stand if it were dragged to a point; an end that a drag leaves alone
  /// isn't written.
  virtual void GetDragLine(const POINT& point, POINT& outStart, POINT& outEnd) const = 0;
  /// The handle, empty for a link too short to have one.
  virtual RECT GetHandleRect() const = 0;
  /// A client point lies in the handle.
  virtual bool HitHandle(const POINT& client) const { return PtInRect(GetHandleRect(), client); }
  /// Moves a segment across its own direction to the line through the point.
  virtual void MoveTo(const POINT& /*point*/) {}
  /// Adds to both ends.
  virtual void Offset(const POINT& delta);
  /// Takes a segment out of the chain and deletes it.
  virtual void Remove() {}

  bool IsSegment() const { return kind == LINK_H || kind == LINK_V; }

  POINT start;
  POINT end;
  Link* prev = nullptr;           ///< towards the source; null on the head
  Link* next = nullptr;           ///< towards the target; null on the tail
  const LinkKind kind;            ///< the class
  const Transition* const owner;  ///< the way to the view

 protected:
  Link(LinkKind kind, Link* prev, Link* next, const Transition* owner)
      : prev(prev), next(next), kind(kind), owner(owner) {}
  /// The handle around a model point.
  RECT HandleAround(POINT model) const;
};

}  // namespace morvane
