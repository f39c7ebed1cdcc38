#include "connectors/HeadLink.h"

#include <algorithm>

#include "connectors/SegmentLink.h"

namespace morvane {

HeadLink::HeadLink(const Transition* owner) : Link(LINK_HEAD, nullptr, nullptr, owner) {}

void HeadLink::SetEnds(const POINT& newStart, const POINT& newEnd) {
  if (newStart == newEnd) return;
  start = newStart;
  end = newEnd;
}

void HeadLink::OnNeighbourMoved(Link* moved) {
  if (moved->kind == LINK_TAIL) {
    // The horizontal leg comes first, seen from the head.
    const POINT corner{moved->start.x, end.y};
    SegmentLink::Insert(LINK_H, this, moved, end, corner);
    SegmentLink::Insert(LINK_V, moved->prev, moved, corner, moved->start);
  } else if (moved->IsSegment()) {
    auto* segment = static_cast<SegmentLink*>(moved);
    POINT corner = end;
    segment->FixedOf(corner) = segment->FixedOf(segment->start);
    // In a sound chain the segment begins at the corner anyway.
    segment->start = corner;
    SegmentLink::Insert(segment->PerpendicularKind(), this, segment, end, corner);
  }
}

void HeadLink::GetDragLine(const POINT& point, POINT& outStart, POINT& /*outEnd*/) const {
  outStart = point;
}

void HeadLink::Offset(const POINT& delta) {
  POINT least = start;
  POINT most = start;
  for (const Link* link = this; link != nullptr; link = link->next) {
    for (const POINT p : {link->start, link->end}) {
      least = {std::min(least.x, p.x), std::min(least.y, p.y)};
      most = {std::max(most.x, p.x), std::max(most.y, p.y)};
    }
  }
  // What saturation leaves of the way of the outermost points is the way of all.
  const POINT low = (least + delta) - least;
  const POINT high = (most + delta) - most;
  const POINT way{delta.x < 0 ? low.x : high.x, delta.y < 0 ? low.y : high.y};
  for (Link* link = this; link != nullptr; link = link->next) link->Link::Offset(way);
}

void HeadLink::MoveEnds(const POINT& newStart, const POINT& newEnd) {
  if (newStart == start && newEnd == end) return;
  if (!next->IsSegment()) {
    start = newStart;
    end = newEnd;
    OnNeighbourMoved(next);
    return;
  }
  // The neighbour moves while only its fixed coordinate is new here: the gap that this link would
  // close for it has no length then. The other coordinate follows, and the neighbour just
  // stretches.
  auto* segment = static_cast<SegmentLink*>(next);
  segment->FixedOf(end) = segment->FixedOf(newEnd);
  segment->MoveTo(newEnd);
  end = newEnd;
  // The segment can have vanished, and what stands behind it needn't reach the new end.
  if (next->IsSegment() && static_cast<SegmentLink*>(next)->Reaches(end)) {
    next->OnNeighbourMoved(this);
  } else {
    OnNeighbourMoved(next);
  }
  start = newStart;
}

void HeadLink::DestroyFollowing() {
  while (next != nullptr) {
    Link* dead = next;
    next = dead->next;
    delete dead;
  }
}

}  // namespace morvane
