#include "connectors/SegmentLink.h"

#include <cstdlib>

#include "connectors/HLink.h"
#include "connectors/VLink.h"

namespace morvane {

namespace {
/// A shorter link has no handle, model units.
constexpr std::int64_t kLeastLengthWithHandle = 2;
}  // namespace

SegmentLink* SegmentLink::Make(LinkKind kind, Link* prev, Link* next, const Transition* owner) {
  if (kind == LINK_H) return new HLink(prev, next, owner);
  return new VLink(prev, next, owner);
}

void SegmentLink::Insert(LinkKind kind, Link* prev, Link* next, POINT start, POINT end) {
  if (start == end) return;
  SegmentLink* made = Make(kind, prev, next, prev->owner);
  prev->next = made;
  next->prev = made;
  made->start = start;
  made->end = end;
}

void SegmentLink::SetEnds(const POINT& newStart, const POINT& newEnd) {
  if (newStart == newEnd) {
    Remove();
    return;
  }
  start = newStart;
  end = newEnd;
}

void SegmentLink::OnNeighbourMoved(Link* moved) {
  if (moved == prev) {
    start = moved->end;
  } else if (moved == next) {
    end = moved->start;
  }
  if (start == end) Remove();
}

void SegmentLink::GetDragLine(const POINT& point, POINT& outStart, POINT& outEnd) const {
  outStart = start;
  outEnd = end;
  FixedOf(outStart) = FixedOf(outEnd) = FixedOf(point);
}

RECT SegmentLink::GetHandleRect() const {
  const bool horizontal = kind == LINK_H;
  const std::int64_t length = horizontal ? std::int64_t{end.x} - start.x  //
                                         : std::int64_t{end.y} - start.y;
  if (std::abs(length) < kLeastLengthWithHandle) return {};
  return HandleAround(horizontal ? POINT{Middle(start.x, end.x), start.y}
                                 : POINT{start.x, Middle(start.y, end.y)});
}

void SegmentLink::MoveTo(const POINT& point) {
  // A segment of a damaged file slants: its ends are not in one line.
  if (FixedOf(start) == FixedOf(point) && FixedOf(end) == FixedOf(point)) return;
  // A removed crossing can have left neighbours of this kind, which move along as one.
  while (prev->kind == kind) AbsorbPrev();
  while (next->kind == kind) AbsorbNext();

  FixedOf(start) = FixedOf(end) = FixedOf(point);
  prev->OnNeighbourMoved(this);
  next->OnNeighbourMoved(this);

  // No neighbour was of this kind before: one that is now stood behind a link that has vanished.
  while (prev->kind == kind) AbsorbPrev();
  while (next->kind == kind) AbsorbNext();
  if (start == end) Collapse();
}

void SegmentLink::Remove() {
  prev->next = next;
  next->prev = prev;
  delete this;
}

void SegmentLink::AbsorbPrev() {
  Link* behind = prev->prev;
  delete prev;
  behind->next = this;
  prev = behind;
  start = behind->end;
}

void SegmentLink::AbsorbNext() {
  Link* behind = next->next;
  delete next;
  behind->prev = this;
  next = behind;
  end = behind->start;
}

void SegmentLink::Collapse() {
  SegmentLink* empty = this;
  while (true) {
    Link* before = empty->prev;
    const Link* after = empty->next;
    empty->Remove();
    if (before->kind != after->kind) return;
    empty = static_cast<SegmentLink*>(before);
    empty->AbsorbNext();
    if (empty->start != empty->end) return;
  }
}

}  // namespace morvane
