#include "connectors/RouteCrossing.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <vector>

#include "model/ShapeGeometry.h"

namespace morvane {

namespace {

using Index = std::uint32_t;
constexpr Index kNone = std::numeric_limits<Index>::max();

/// Up to this length comparing each with each is quickest.
constexpr std::size_t kShortRoute = 48;

/// The smallest value in a range of places, each of which holds one or none.
class MinTree {
 public:
  explicit MinTree(std::size_t places)
      : leaves(std::bit_ceil(std::max<std::size_t>(places, 1))), nodes(2 * leaves, kNone) {}

  void Set(std::size_t place, Index value) {
    std::size_t node = leaves + place;
    nodes[node] = value;
    while (node > 1) {
      node /= 2;
      nodes[node] = std::min(nodes[2 * node], nodes[2 * node + 1]);
    }
  }

  Index Get(std::size_t place) const { return nodes[leaves + place]; }

  Index Least(std::size_t from, std::size_t to) const {
    Index least = kNone;
    for (from += leaves, to += leaves; from < to; from /= 2, to /= 2) {
      if (from % 2 != 0) least = std::min(least, nodes[from++]);
      if (to % 2 != 0) least = std::min(least, nodes[--to]);
    }
    return least;
  }

 private:
  std::size_t leaves;
  std::vector<Index> nodes;
};

/// A range of one coordinate with both ends inside, at one value of the other coordinate.
struct Bar {
  std::int32_t low;
  std::int32_t high;
  std::int32_t at;
  Index link;
};

Bar HorizontalBar(const RouteSegment& s, Index link) {
  return {std::min(s.start.x, s.end.x), std::max(s.start.x, s.end.x), s.start.y, link};
}

Bar VerticalBar(const RouteSegment& s, Index link) {
  return {std::min(s.start.y, s.end.y), std::max(s.start.y, s.end.y), s.start.x, link};
}

/// Sweeps along one axis over bars that lie along it and bars that stand across it, and finds of
/// all pairs that meet, neighbours in the route aside, the smallest index of a first partner.
class Sweep {
 public:
  Sweep(std::vector<Bar> lying, std::vector<Bar> standing, std::size_t links)
      : lying(std::move(lying)),
        standing(std::move(standing)),
        active(this->lying.size()),
        placeOfLink(links, kNone) {
    std::sort(this->lying.begin(), this->lying.end(),
              [](const Bar& a, const Bar& b) { return a.at < b.at; });
    for (std::size_t place = 0; place < this->lying.size(); ++place) {
      placeOfLink[this->lying[place].link] = static_cast<Index>(place);
    }
  }

  Index Run() {
    for (const Event& event : Events()) {
      const Bar& bar = event.step == Step::Cross ? standing[event.bar] : lying[event.bar];
      switch (event.step) {
        case Step::Begin:
          Note(bar.link, bar.at, bar.at);
          active.Set(event.bar, bar.link);
          break;
        case Step::Cross: Note(bar.link, bar.low, bar.high); break;
        case Step::End: active.Set(event.bar, kNone); break;
      }
    }
    return least;
  }

 private:
  /// At one position all bars begin before any is crossed or ends: touching counts as meeting.
  enum class Step { Begin, Cross, End };
  struct Event {
    std::int32_t position;
    Step step;
    Index bar;
  };

  std::vector<Event> Events() const {
    std::vector<Event> events;
    events.reserve(2 * lying.size() + standing.size());
    for (Index i = 0; i < lying.size(); ++i) {
      events.push_back({lying[i].low, Step::Begin, i});
      events.push_back({lying[i].high, Step::End, i});
    }
    for (Index i = 0; i < standing.size(); ++i) {
      events.push_back({standing[i].at, Step::Cross, i});
    }
    std::sort(events.begin(), events.end(), [](const Event& a, const Event& b) {
      return a.position != b.position ? a.position < b.position : a.step < b.step;
    });
    return events;
  }

  /// Looks at what is active in a range across the sweep, but for the link's neighbours.
  void Note(Index link, std::int32_t low, std::int32_t high) {
    const Index before = Hide(link - 1);
    const Index after = Hide(link + 1);
    const auto from = std::lower_bound(lying.begin(), lying.end(), low,
                                       [](const Bar& bar, std::int32_t at) { return bar.at < at; });
    const auto to = std::upper_bound(from, lying.end(), high,
                                     [](std::int32_t at, const Bar& bar) { return at < bar.at; });
    const Index partner = active.Least(static_cast<std::size_t>(from - lying.begin()),
                                       static_cast<std::size_t>(to - lying.begin()));
    if (partner != kNone) least = std::min({least, partner, link});
    Show(link - 1, before);
    Show(link + 1, after);
  }

  Index Hide(Index link) {
    if (link >= placeOfLink.size() || placeOfLink[link] == kNone) return kNone;
    const Index value = active.Get(placeOfLink[link]);
    if (value != kNone) active.Set(placeOfLink[link], kNone);
    return value;
  }

  void Show(Index link, Index value) {
    if (value != kNone) active.Set(placeOfLink[link], value);
  }

  std::vector<Bar> lying;
  std::vector<Bar> standing;
  MinTree active;
  std::vector<Index> placeOfLink;
  Index least = kNone;
};

/// The first piece that crosses another, by sweeps in both directions: the first one sees the
/// crossings and the horizontal pieces that overlap, the second one the vertical ones that do.
Index FirstByOrder(std::span<const RouteSegment> route) {
  std::vector<Bar> horizontal;
  std::vector<Bar> vertical;
  for (std::size_t i = 0; i < route.size(); ++i) {
    const bool isHorizontal = route[i].start.y == route[i].end.y;
    if (isHorizontal) {
      horizontal.push_back(HorizontalBar(route[i], static_cast<Index>(i)));
    } else {
      vertical.push_back(VerticalBar(route[i], static_cast<Index>(i)));
    }
  }
  const Index first = Sweep(horizontal, vertical, route.size()).Run();
  return std::min(first, Sweep(vertical, {}, route.size()).Run());
}

std::optional<RouteCrossing> CrossingOf(std::span<const RouteSegment> route, std::size_t first) {
  const RouteSegment& a = route[first];
  for (std::size_t last = route.size() - 1; last > first + 1; --last) {
    POINT point;
    if (SegmentCrossing(a.start, a.end, route[last].start, route[last].end, point)) {
      return RouteCrossing{first, last, point};
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<RouteCrossing> FindRouteCrossing(std::span<const RouteSegment> route) {
  if (route.size() > kShortRoute) {
    const Index first = FirstByOrder(route);
    return first != kNone ? CrossingOf(route, first) : std::nullopt;
  }
  for (std::size_t first = 0; first + 2 < route.size(); ++first) {
    if (auto crossing = CrossingOf(route, first)) return crossing;
  }
  return std::nullopt;
}

}  // namespace morvane
