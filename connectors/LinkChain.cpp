#include "connectors/LinkChain.h"

#include <algorithm>

#include "connectors/HeadLink.h"
#include "connectors/RouteCrossing.h"
#include "connectors/SegmentLink.h"
#include "connectors/TailLink.h"

namespace morvane {

namespace {

/// So many crossings are cut out after one change before the route counts as beyond repair.
constexpr int kMaxCrossings = 5;

bool IsSegmentRecord(const ChainRecord& record) {
  return record.kind == LINK_H || record.kind == LINK_V;
}

/// The records run from their one head to a tail. Unknown kinds count for nothing.
bool RunsFromHeadToTail(std::span<const ChainRecord> records) {
  bool hasHead = false;
  for (const ChainRecord& record : records) {
    if (record.kind == LINK_TAIL) return hasHead;
    if (record.kind == LINK_HEAD && hasHead) return false;
    if (IsSegmentRecord(record) && !hasHead) return false;
    hasHead = hasHead || record.kind == LINK_HEAD;
  }
  return false;
}

bool Slants(const Link* link) {
  if (!link->IsSegment()) return false;
  return link->kind == LINK_H ? link->start.y != link->end.y : link->start.x != link->end.x;
}

/// Lets the chain in front of a segment end in a corner from which the segment can start.
void LeadTo(SegmentLink* segment, POINT corner) {
  Link* before = segment->prev;
  if (before->kind != segment->PerpendicularKind()) {
    SegmentLink::Insert(segment->PerpendicularKind(), before, segment, before->end, corner);
    return;
  }
  before->end = corner;
  if (before->start != corner) return;
  before->Remove();
  if (segment->prev->kind == segment->kind) segment->AbsorbPrev();
}

/// Lets a segment begin where the link before it ends and run along its own axis. Gives the link
/// behind it; the segment itself can go.
Link* MendSegment(SegmentLink* segment) {
  POINT corner = segment->prev->end;
  segment->FixedOf(corner) = segment->FixedOf(segment->start);
  if (corner != segment->prev->end) LeadTo(segment, corner);
  segment->start = segment->prev->end;
  segment->FixedOf(segment->end) = segment->FixedOf(segment->start);
  Link* after = segment->next;
  if (segment->start != segment->end) return after;

  const Link* before = segment->prev;
  segment->Remove();
  if (after->kind == before->kind) {
    auto* sameKind = static_cast<SegmentLink*>(after);
    if (sameKind->Reaches(before->end)) sameKind->AbsorbPrev();
  }
  return after;
}

}  // namespace

bool LinkChain::Build(std::span<const ChainRecord> records) {
  Clear();
  if (!RunsFromHeadToTail(records)) return false;
  Link* last = nullptr;
  for (const ChainRecord& record : records) {
    if (record.kind == LINK_HEAD) {
      head = new HeadLink(owner);
      last = head;
    } else if (IsSegmentRecord(record) && record.start != record.end) {
      last->next = SegmentLink::Make(static_cast<LinkKind>(record.kind), last, nullptr, owner);
      last = last->next;
    } else if (record.kind == LINK_TAIL) {
      tail = new TailLink(last, owner);
      last->next = tail;
      JoinTail(record.start, record.end);
      DropEmptySegments();
      break;
    } else {
      continue;
    }
    last->start = record.start;
    last->end = record.end;
  }
  return true;
}

void LinkChain::Clear() {
  if (head != nullptr) head->DestroyFollowing();
  delete head;
  head = nullptr;
  tail = nullptr;
}

/// The tail starts out at the end of the chain and then goes to its place: so the last segment
/// meets it by the same rules as in a drag. Where that takes the segment away and there was a gap
/// or a slant in front of it, the next one has to meet the tail.
void LinkChain::JoinTail(POINT stub, POINT anchor) {
  do {
    tail->start = tail->prev->end;
    tail->MoveEnds(stub, anchor);
    while (Slants(tail->prev)) static_cast<SegmentLink*>(tail->prev)->MoveTo(stub);
  } while (tail->prev->end != tail->start);
}

/// What a segment behind a slant leaves without length would not be read again.
void LinkChain::DropEmptySegments() {
  for (Link* link = head->next; link != tail;) {
    Link* const next = link->next;
    if (link->start == link->end) link->Remove();
    link = next;
  }
}

const Link* LinkChain::Middle() const {
  std::size_t links = 0;
  for (const Link* link = head; link != nullptr; link = link->next) ++links;
  const Link* middle = head;
  for (std::size_t i = 0; i < links / 2; ++i) middle = middle->next;
  return middle;
}

std::vector<ChainRecord> LinkChain::Records() const {
  std::vector<ChainRecord> records;
  for (const Link* link = head; link != nullptr; link = link->next) {
    records.push_back({link->kind, link->start, link->end});
  }
  return records;
}

std::vector<POINT> LinkChain::Points() const {
  std::vector<POINT> points{head->start, head->end};
  const auto add = [&points](POINT p) {
    const auto inLine = [&](std::int32_t POINT::*c) {
      return points.back().*c == p.*c && points[points.size() - 2].*c == p.*c;
    };
    while (points.size() > 2 && (inLine(&POINT::x) || inLine(&POINT::y))) points.pop_back();
    points.push_back(p);
  };
  for (const Link* link = head->next; link != tail; link = link->next) add(link->end);
  points.push_back(tail->end);
  return points;
}

bool LinkChain::Untangle() {
  Straighten();
  MergeTwins();
  for (int i = 0; i < kMaxCrossings; ++i) {
    if (RemoveCrossing()) return true;
  }
  return false;
}

void LinkChain::Straighten() {
  for (Link* link = head->next; link != tail;) {
    link = MendSegment(static_cast<SegmentLink*>(link));
  }
  if (tail->prev->end != tail->start) JoinTail(tail->start, tail->end);
}

void LinkChain::MergeTwins() {
  for (Link* link = head->next; link != tail;) {
    if (link->next->kind != link->kind) {
      link = link->next;
      continue;
    }
    auto* segment = static_cast<SegmentLink*>(link);
    segment->AbsorbNext();
    if (segment->start != segment->end) continue;
    // The one doubled back on the other. What meets now can be of one kind too.
    segment->Collapse();
    link = head->next;
  }
}

bool LinkChain::RemoveCrossing() {
  std::vector<Link*> links;
  std::vector<RouteSegment> route;
  for (Link* link = head->next; link != tail; link = link->next) {
    links.push_back(link);
    route.push_back({link->start, link->end});
  }
  const std::optional<RouteCrossing> crossing = FindRouteCrossing(route);
  if (!crossing) return true;

  Link* first = links[crossing->first];
  Link* last = links[crossing->last];
  const auto begin = links.begin();
  std::for_each(begin + static_cast<std::ptrdiff_t>(crossing->first) + 1,
                begin + static_cast<std::ptrdiff_t>(crossing->last),
                [](Link* dead) { delete dead; });
  first->next = last;
  last->prev = first;
  first->SetEnds(first->start, crossing->point);
  last->SetEnds(crossing->point, last->end);
  MergeTwins();
  return false;
}

}  // namespace morvane
