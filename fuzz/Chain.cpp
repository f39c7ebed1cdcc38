#include <array>
#include <limits>
#include <vector>

#include "connectors/HeadLink.h"
#include "connectors/LinkChain.h"
#include "connectors/RouteCrossing.h"
#include "connectors/TailLink.h"
#include "fuzz/ByteSource.h"
#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "model/ShapeGeometry.h"

namespace morvane {

// A chain of links from any records, and any changes of it: it stays a chain. And the quick search
// for the place where a route crosses itself finds what comparing each segment with each finds.

namespace {

/// Coordinates that collide often, with some at the limits.
std::int32_t AnyCoordinate(ByteSource& source) {
  using Limits = std::numeric_limits<std::int32_t>;
  const int pick = source.Below(62);
  return pick > 1 ? pick % 12 : pick == 1 ? Limits::min() : Limits::max();
}

POINT AnyPoint(ByteSource& source) {
  const std::int32_t x = AnyCoordinate(source);
  return {x, AnyCoordinate(source)};
}

std::vector<ChainRecord> AnyRecords(ByteSource& source) {
  std::vector<ChainRecord> records;
  const int segments = source.Below(9);
  for (int i = 0; i < segments + 2; ++i) {
    const int kind = i == 0 ? LINK_HEAD : i == segments + 1 ? LINK_TAIL : source.Below(2);
    const POINT start = AnyPoint(source);
    records.push_back({kind, start, AnyPoint(source)});
  }
  return records;
}

/// A cut can leave two neighbours of one kind, which join when one of them moves.
bool HasTwins(const LinkChain& chain) {
  for (const Link* link = chain.Head(); link->next != nullptr; link = link->next) {
    if (link->kind == link->next->kind) return true;
  }
  return false;
}

Link& AnyLink(ByteSource& source, const LinkChain& chain) {
  Link* link = chain.Head();
  for (int i = source.Below(static_cast<int>(chain.Records().size())); i > 0; --i) {
    link = link->next;
  }
  return *link;
}

/// True if the change may leave twins.
bool ChangeAnything(ByteSource& source, LinkChain& chain) {
  const POINT p = AnyPoint(source);
  const POINT beside = StepPoint(p, static_cast<std::uint16_t>(1 + source.Below(4)));
  switch (source.Below(6)) {
    case 0:
      chain.Head()->MoveEnds(p, beside);
      Require(chain.Head()->start == p, "a head stands elsewhere");
      return false;
    case 1:
      chain.Tail()->MoveEnds(beside, p);
      Require(chain.Tail()->end == p, "a tail stands elsewhere");
      return false;
    case 2: return !chain.RemoveCrossing();
    case 3: chain.Head()->Offset({source.Below(9) - 4, source.Below(9) - 4}); return false;
    default: AnyLink(source, chain).MoveTo(p); return false;
  }
}

void ChangeChain(ByteSource& source) {
  LinkChain chain(nullptr);
  Require(chain.Build(AnyRecords(source)), "a chain with its two ends is refused");
  LinkChain again(nullptr);
  Require(again.Build(chain.Records()) && again.Records() == chain.Records(),
          "a chain reads back to another one");
  chain.Straighten();
  Require(ChainFault(chain));
  bool mayHaveTwins = HasTwins(chain);
  while (!source.IsEmpty()) {
    mayHaveTwins = ChangeAnything(source, chain) || mayHaveTwins;
    Require(ChainFault(chain));
    Require(mayHaveTwins || !HasTwins(chain), "two neighbours have one direction");
  }
}

std::optional<RouteCrossing> CompareEachWithEach(const std::vector<RouteSegment>& route) {
  for (std::size_t a = 0; a < route.size(); ++a) {
    for (std::size_t b = route.size(); b-- > a + 2;) {
      POINT p;
      if (SegmentCrossing(route[a].start, route[a].end, route[b].start, route[b].end, p)) {
        return RouteCrossing{a, b, p};
      }
    }
  }
  return std::nullopt;
}

/// Mostly ahead, so that some routes cross late or not at all.
void SearchRoute(ByteSource& source) {
  constexpr std::size_t longest = 150;
  std::vector<RouteSegment> route;
  POINT at{0, 0};
  while (!source.IsEmpty() && route.size() < longest) {
    const int pick = source.Byte();
    const int step = pick % 40 == 0 ? -(pick / 40) - 1 : pick % 5 + 1;
    const bool level = (pick / 5 % 8 != 0) == (route.size() % 2 != 0);
    const POINT to = at + (level ? POINT{step, 0} : POINT{0, step});
    route.push_back({at, to});
    at = to;
  }
  Require(FindRouteCrossing(route) == CompareEachWithEach(route), "the search misses a crossing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  source.Flag() ? SearchRoute(source) : ChangeChain(source);
  return 0;
}

}  // namespace morvane
