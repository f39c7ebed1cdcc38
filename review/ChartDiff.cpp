#include "review/ChartDiff.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "review/ChartDescription.h"
#include "review/MovedGroups.h"

namespace morvane {

namespace {

std::vector<FactChange> Compare(const std::vector<Fact>& before, const std::vector<Fact>& after) {
  std::vector<FactChange> changes;
  const std::size_t count = std::min(before.size(), after.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (before[i].value != after[i].value) changes.push_back({&before[i], &after[i]});
  }
  return changes;
}

bool IsOfPlace(const FactChange& change) {
  return change.after->aspect == Fact::Aspect::Place || change.after->aspect == Fact::Aspect::Route;
}

/// By how much one outline lies beside another of the same form.
std::optional<POINT> ShiftBetween(const std::vector<POINT>& before,
                                  const std::vector<POINT>& after) {
  if (before.empty() || before.size() != after.size()) return std::nullopt;
  const POINT shift = after.front() - before.front();
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i] + shift != after[i] || after[i] - shift != before[i]) return std::nullopt;
  }
  return shift != POINT{} ? std::optional(shift) : std::nullopt;
}

/// How far an object moved that kept its form and hangs where it hung.
std::optional<POINT> ShiftOf(const ObjectChange& change) {
  const bool hangsElsewhere = std::ranges::any_of(change.facts, [](const FactChange& fact) {
    return std::string_view(fact.after->label) == "anchors";
  });
  if (hangsElsewhere || std::ranges::none_of(change.facts, IsOfPlace)) return std::nullopt;
  return ShiftBetween(change.before->outline, change.after->outline);
}

auto KeyOf(const DescribedObject& object) { return std::tie(object.id, object.keyword); }

}  // namespace

bool ObjectChange::HasMeaning() const {
  return kind != Kind::Changed || std::ranges::any_of(facts, [](const FactChange& fact) {
           return fact.after->HasMeaning();
         });
}

bool ObjectChange::HasLook() const {
  return std::ranges::any_of(facts, [this](const FactChange& fact) {
    return !fact.after->HasMeaning() && !(movesAlong && IsOfPlace(fact));
  });
}

ChartDiff::ChartDiff(const ChartDescription& before, const ChartDescription& after)
    : properties(Compare(before.properties, after.properties)) {
  using Kind = ObjectChange::Kind;
  std::vector<MovedGroups::Pair> pairs;
  auto old = before.objects.begin();
  auto now = after.objects.begin();
  while (old != before.objects.end() || now != after.objects.end()) {
    const bool hasOld = old != before.objects.end();
    const bool hasNow = now != after.objects.end();
    if (!hasNow || (hasOld && KeyOf(*old) < KeyOf(*now))) {
      changes.push_back({.kind = Kind::Removed, .before = &*old++});
    } else if (!hasOld || KeyOf(*now) < KeyOf(*old)) {
      changes.push_back({.kind = Kind::Added, .after = &*now++});
    } else {
      pairs.push_back({.box = old->Box()});
      ObjectChange change{.before = &*old++, .after = &*now++};
      change.facts = Compare(change.before->facts, change.after->facts);
      if (change.facts.empty()) continue;
      change.shift = ShiftOf(change);
      pairs.back().change = changes.size();
      changes.push_back(std::move(change));
    }
  }
  wholeShift = MovedGroups(std::move(pairs), changes).Find();
}

}  // namespace morvane
