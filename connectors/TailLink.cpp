#include "connectors/TailLink.h"

#include "connectors/SegmentLink.h"

namespace morvane {

TailLink::TailLink(Link* prev, const Transition* owner) : Link(LINK_TAIL, prev, nullptr, owner) {}

void TailLink::SetEnds(const POINT& newStart, const POINT& newEnd) {
  if (newStart != newEnd) MoveEnds(newStart, newEnd);
}

void TailLink::OnNeighbourMoved(Link* moved) {
  if (!moved->IsSegment()) return;
  auto* segment = static_cast<SegmentLink*>(moved);
  POINT corner = start;
  segment->FixedOf(corner) = segment->FixedOf(segment->end);
  // In a sound chain the segment ends at the corner anyway.
  segment->end = corner;
  SegmentLink::Insert(segment->PerpendicularKind(), segment, this, corner, start);
}

void TailLink::GetDragLine(const POINT& point, POINT& /*outStart*/, POINT& outEnd) const {
  outEnd = point;
}

void TailLink::MoveEnds(const POINT& newStart, const POINT& newEnd) {
  if (newStart == start && newEnd == end) return;
  if (!prev->IsSegment()) {
    start = newStart;
    end = newEnd;
    prev->OnNeighbourMoved(this);
    return;
  }
  // In two steps, as at the head.
  auto* segment = static_cast<SegmentLink*>(prev);
  segment->FixedOf(start) = segment->FixedOf(newStart);
  segment->MoveTo(newStart);
  start = newStart;
  if (prev->IsSegment() && !static_cast<SegmentLink*>(prev)->Reaches(start)) {
    OnNeighbourMoved(prev);
  } else {
    prev->OnNeighbourMoved(this);
  }
  end = newEnd;
}

}  // namespace morvane
