#include "machine/Nesting.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <tuple>

#include "machine/DrawnChart.h"
#include "machine/ProblemList.h"
#include "resources/Texts.h"

namespace morvane {

Nesting::Nesting(const std::vector<DrawnState>& states, ProblemList& problems)
    : states(states),
      problems(problems),
      parents(states.size(), kOutermost),
      orders(states.size(), 0),
      isReported(states.size(), false) {}

const RECT& Nesting::RectOf(int at) const { return states[at].rect; }

bool Nesting::IsMark(int at) const { return states[at].kind != DrawnObject::Kind::State; }

std::vector<int> Nesting::Parents() {
  const std::vector<int> order = SweepOrder();
  for (std::size_t i = 0; i < order.size(); ++i) {
    Close(RectOf(order[i]).left);
    Place(order[i], static_cast<int>(i));
  }
  return std::move(parents);
}

/// From left to right; what can hold others stands before them.
std::vector<int> Nesting::SweepOrder() {
  std::vector<int> order;
  for (int at = 0; at < std::ssize(states); ++at) {
    if (IsRectEmpty(RectOf(at))) {
      problems.Error(states[at], Said("has no size"));
    } else {
      order.push_back(at);
    }
  }
  const auto key = [this](int at) {
    const RECT& r = RectOf(at);
    return std::tuple(r.left, IsMark(at), -std::int64_t{r.right}, r.top, -std::int64_t{r.bottom});
  };
  std::ranges::stable_sort(order, {}, key);
  return order;
}

/// Takes out what ends before or at `x`.
void Nesting::Close(std::int32_t x) {
  while (!open.empty() && open.top().first <= x) {
    const int at = open.top().second;
    open.pop();
    if (IsMark(at)) {
      marks.erase({RectOf(at).top, at});
    } else {
      edges.erase({RectOf(at).top, true, orders[at]});
      edges.erase({RectOf(at).bottom, false, -orders[at]});
    }
  }
}

void Nesting::Place(int at, int order) {
  const RECT& rect = RectOf(at);
  const auto next = edges.lower_bound(Edge{rect.top, true, order});
  int holder = kOutermost;
  if (next != edges.begin()) {
    const auto& [edge, state] = *std::prev(next);
    holder = edge.isUpper ? state : parents[state];
  }
  int crossed = kOutermost;
  if (next != edges.end() && next->first.y < rect.bottom) {
    crossed = next->second;
  } else if (holder != kOutermost && RectOf(holder).right < rect.right) {
    crossed = holder;
  } else if (holder != kOutermost && !IsMark(at) && RectOf(holder) == rect) {
    crossed = holder;
  }
  if (crossed != kOutermost) return Report(at, crossed);
  parents[at] = holder;
  Open(at, order);
}

void Nesting::Open(int at, int order) {
  const RECT& rect = RectOf(at);
  open.emplace(rect.right, at);
  if (IsMark(at)) {
    marks.emplace(rect.top, at);
    tallestMark = std::max(tallestMark, Height(rect));
    return;
  }
  orders[at] = order;
  edges.emplace(Edge{rect.top, true, order}, at);
  edges.emplace(Edge{rect.bottom, false, -order}, at);
  MeetMarks(at);
}

/// A mark that began further left and reaches into the new state stands on its border.
void Nesting::MeetMarks(int at) {
  const RECT& rect = RectOf(at);
  const std::int32_t highest = Saturate(rect.top - tallestMark);
  for (auto mark = marks.lower_bound({highest, 0}); mark != marks.end(); ++mark) {
    if (mark->first >= rect.bottom) break;
    if (RectOf(mark->second).bottom > rect.top) Report(mark->second, at);
  }
}

/// Each object is named once, so that one that was moved by mistake gives one message.
void Nesting::Report(int at, int other) {
  if (isReported[at] || isReported[other]) return;
  isReported[at] = isReported[other] = true;
  const std::string name = states[other].Name();
  if (IsMark(at)) return problems.Error(states[at], Said("stands on the border of %1", {name}));
  const auto [first, second] = std::minmax(at, other);
  problems.Error(states[first], RectOf(at) == RectOf(other)
                                    ? Said("lies exactly on %1", {states[second].Name()})
                                    : Said("overlaps %1", {states[second].Name()}));
}

}  // namespace morvane
