#pragma once

#include "connectors/Link.h"

namespace morvane {

/// What `HLink` and `VLink` share: everything, but for the axis. The comments speak of the fixed
/// coordinate, which all points of the link share: y of a horizontal link, x of a vertical one.
class SegmentLink : public Link {
 public:
  void SetEnds(const POINT& newStart, const POINT& newEnd) override;
  /// Stretches to the neighbour; at zero length the link takes itself out.
  void OnNeighbourMoved(Link* moved) override;
  void GetDragLine(const POINT& point, POINT& outStart, POINT& outEnd) const override;
  RECT GetHandleRect() const override;
  void MoveTo(const POINT& point) override;
  void Remove() override;

  /// The link gets to a point without leaving its line.
  bool Reaches(POINT p) const { return FixedOf(p) == FixedOf(start); }
  std::int32_t& FixedOf(POINT& p) const { return kind == LINK_H ? p.y : p.x; }
  std::int32_t FixedOf(const POINT& p) const { return kind == LINK_H ? p.y : p.x; }
  LinkKind PerpendicularKind() const { return kind == LINK_H ? LINK_V : LINK_H; }

  /// Takes the place of a neighbour of the same kind too, up to what lies behind it.
  void AbsorbPrev();
  void AbsorbNext();
  /// Takes a link without length out of the chain. Where that makes neighbours of one kind meet
  /// they become one link, and if that one doubles back on itself it may have no length either.
  void Collapse();

  /// Makes a segment and puts it between two neighbours. Nothing is made between equal points.
  static void Insert(LinkKind kind, Link* prev, Link* next, POINT start, POINT end);
  static SegmentLink* Make(LinkKind kind, Link* prev, Link* next, const Transition* owner);

 protected:
  using Link::Link;
};

}  // namespace morvane
