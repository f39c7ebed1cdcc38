#include "review/ChangeText.h"

#include <array>
#include <string_view>

#include "resources/Texts.h"
#include "review/LineDiff.h"

namespace morvane {

namespace {

using Aspect = Fact::Aspect;

std::string ShiftText(POINT shift) {
  return std::to_string(shift.x) + ", " + std::to_string(shift.y);
}

std::string SizeText(const RECT& box) {
  return std::to_string(Width(box)) + " x " + std::to_string(Height(box));
}

void AddListing(std::vector<std::string>& lines, const char* label, std::string_view before,
                std::string_view after) {
  lines.push_back(Translate(label) + ':');
  for (const std::string& line : LineDiff::Listing(before, after)) lines.push_back("  " + line);
}

std::string ShownOrNone(const Fact& fact) {
  return fact.value.empty() ? Translate("none") : LineDiff::Readable(fact.Shown());
}

std::string MoveText(const ObjectChange& change) {
  std::string text = WithName(Translate("moved by %1"), ShiftText(*change.shift));
  if (change.heldAlong == 0) return text;
  const std::string along = std::to_string(change.heldAlong);
  const bool all = change.heldAlong == change.held;
  const std::string format = all ? Translate("%1, with all that stands in it (%2)")
                                 : Translate("%1, with %2 of what stands in it");
  return Filled(format,
                std::array{text, all ? along : along + " / " + std::to_string(change.held)});
}

std::string PlaceText(const ObjectChange& change) {
  if (change.shift) return MoveText(change);
  const RECT before = change.before->Box();
  const RECT after = change.after->Box();
  std::string text = Said("resized from %1 to %2", {SizeText(before), SizeText(after)});
  const POINT shift = TopLeft(after) - TopLeft(before);
  if (shift != POINT{}) {
    text += ", " + WithName(Translate("moved by %1"), ShiftText(shift));
  }
  return text;
}

/// A route that moved or runs otherwise is told once, wherever it hangs.
std::string RouteText(const ObjectChange& change) {
  return change.shift ? MoveText(change) : Translate("rerouted");
}

}  // namespace

std::vector<std::string> ChangeText::Of(const FactChange& change) {
  std::vector<std::string> lines;
  const Fact& before = *change.before;
  const Fact& after = *change.after;
  if (after.aspect == Aspect::Text) {
    AddListing(lines, after.label, before.value, after.value);
  } else {
    lines.push_back(Translate(after.label) + ": " + ShownOrNone(before) + " -> " +
                    ShownOrNone(after));
  }
  return lines;
}

std::vector<std::string> ChangeText::Meaning(const ObjectChange& change) {
  std::vector<std::string> lines;
  for (const FactChange& fact : change.facts) {
    if (!fact.after->HasMeaning()) continue;
    for (std::string& line : Of(fact)) lines.push_back(std::move(line));
  }
  if (change.kind == ObjectChange::Kind::Changed) return lines;
  const bool added = change.kind == ObjectChange::Kind::Added;
  for (const Fact& fact : change.Object().facts) {
    const bool isTold = fact.HasMeaning() && fact.aspect != Aspect::Name && !fact.value.empty();
    if (!isTold) continue;
    if (fact.aspect == Aspect::Text) {
      AddListing(lines, fact.label, added ? "" : fact.value, added ? fact.value : "");
    } else {
      lines.push_back(Translate(fact.label) + ": " + LineDiff::Readable(fact.Shown()));
    }
  }
  return lines;
}

std::vector<std::string> ChangeText::Look(const ObjectChange& change) {
  std::vector<std::string> lines;
  bool routeIsTold = change.movesAlong;
  for (const FactChange& fact : change.facts) {
    switch (fact.after->aspect) {
      case Aspect::Place:
        if (!change.movesAlong) lines.push_back(PlaceText(change));
        break;
      case Aspect::Route:
        if (!routeIsTold) lines.push_back(RouteText(change));
        routeIsTold = true;
        break;
      case Aspect::Look:
        for (std::string& line : Of(fact)) lines.push_back(std::move(line));
        break;
      default: break;
    }
  }
  return lines;
}

std::string ChangeText::WholeShift(POINT shift) {
  return WithName(Translate("everything moved by %1"), ShiftText(shift));
}

}  // namespace morvane
