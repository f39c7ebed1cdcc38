#include "surface/TidyUp.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "model/ModelMgr.h"
#include "model/RectShape.h"
#include "resources/Texts.h"
#include "surface/ChartArranger.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

using Part = ChartArranger::Part;

/// Where a whole chart begins, model units.
constexpr POINT kCorner{8, 8};
constexpr int kOutermost = LayoutBox::kOutermost;

/// The nesting of a chart: for each box what it stands in, and which boxes cross each other.
struct NestingByIds {
  std::map<std::int32_t, std::int32_t> holders;
  std::set<std::pair<std::int32_t, std::int32_t>> crossing;
};

bool Meet(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// From left to right, each against those that reach as far.
void FindCrossing(const std::vector<Part>& parts, NestingByIds& nesting) {
  std::map<int, std::vector<const RectShape*>> levels;
  for (const Part& part : parts) levels[part.holder].push_back(part.shape);
  for (auto& [holder, level] : levels) {
    std::ranges::sort(level, {}, [](const RectShape* box) { return box->GetBounds().left; });
    std::vector<const RectShape*> open;
    for (const RectShape* box : level) {
      const RECT bounds = box->GetBounds();
      std::erase_if(open, [&](const RectShape* o) { return o->GetBounds().right <= bounds.left; });
      for (const RectShape* other : open) {
        if (!Meet(other->GetBounds(), bounds)) continue;
        nesting.crossing.insert(std::minmax(other->GetId(), box->GetId()));
      }
      open.push_back(box);
    }
  }
}

NestingByIds NestingOf(const ModelMgr& model) {
  NestingByIds nesting;
  const std::vector<Part> parts = PartsOf(model);
  for (const Part& part : parts) {
    nesting.holders[part.shape->GetId()] =
        part.holder == kOutermost ? 0 : parts[part.holder].shape->GetId();
  }
  FindCrossing(parts, nesting);
  return nesting;
}

/// Nothing has gone into or out of anything, and nothing crosses what it did not cross before.
bool IsKept(const NestingByIds& before, const NestingByIds& after) {
  return before.holders == after.holders && std::ranges::includes(before.crossing, after.crossing);
}

/// The selected boxes with all that stands in them.
std::vector<bool> ChosenOf(const std::vector<Part>& parts, const ModelMgr& model) {
  std::unordered_set<const Shape*> selected;
  for (const Shape* shape : model.SelectedShapes()) selected.insert(shape);
  enum class Answer : std::uint8_t { Unknown, No, Yes };
  std::vector<Answer> answers(parts.size(), Answer::Unknown);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::vector<std::size_t> way;
    Answer answer = Answer::No;
    for (int at = static_cast<int>(i); at != kOutermost; at = parts[at].holder) {
      if (selected.contains(parts[at].shape)) answer = Answer::Yes;
      if (answers[at] != Answer::Unknown) answer = answers[at];
      way.push_back(at);
      if (answer != Answer::No || answers[at] == Answer::No) break;
    }
    for (const std::size_t at : way) answers[at] = answer;
  }
  std::vector<bool> chosen;
  chosen.reserve(answers.size());
  for (const Answer answer : answers) chosen.push_back(answer == Answer::Yes);
  return chosen;
}

/// Some parts as a list of their own.
std::vector<Part> Picked(const std::vector<Part>& parts, const std::vector<int>& indices) {
  std::map<int, int> places;
  for (const int index : indices) places.emplace(index, static_cast<int>(places.size()));
  std::vector<Part> picked;
  for (const int index : indices) {
    const auto holder = places.find(parts[index].holder);
    picked.push_back({parts[index].shape, holder == places.end() ? kOutermost : holder->second});
  }
  return picked;
}

POINT CornerOf(const std::vector<Part>& parts) {
  POINT corner{INT32_MAX, INT32_MAX};
  for (const Part& part : parts) {
    if (part.holder != kOutermost) continue;
    corner = {std::min(corner.x, part.shape->GetBounds().left),
              std::min(corner.y, part.shape->GetBounds().top)};
  }
  return corner;
}

/// Lays out what is chosen, what stands side by side at a time.
void ArrangeChosen(ModelMgr& model, const std::vector<Part>& parts,
                   const std::vector<bool>& chosen) {
  std::map<int, std::vector<int>> groups;  // by what the outermost of them stand in
  for (int i = 0; i < std::ssize(parts); ++i) {
    if (!chosen[i]) continue;
    int top = i;
    while (parts[top].holder != kOutermost && chosen[parts[top].holder]) top = parts[top].holder;
    groups[parts[top].holder].push_back(i);
  }
  for (const auto& [holder, group] : groups) {
    const std::vector<Part> picked = Picked(parts, group);
    ChartArranger(model).Arrange(picked, CornerOf(picked));
  }
}

void Arrange(ModelMgr& model) {
  const std::vector<Part> parts = PartsOf(model);
  const std::vector<bool> chosen = ChosenOf(parts, model);
  if (std::ranges::find(chosen, true) != chosen.end()) return ArrangeChosen(model, parts, chosen);
  ChartArranger(model).Arrange(parts, kCorner);
}

}  // namespace

void TidyUp(LayoutMgr& chart) {
  const std::string before = chart.ModelText();
  const NestingByIds nesting = NestingOf(chart.GetModel());
  Arrange(chart.GetModel());
  if (!IsKept(nesting, NestingOf(chart.GetModel()))) {
    std::string reason;
    chart.Restore(before, reason);
    chart.TellLater(LoadText(IDS_TIDY_NO_ROOM));
  }
  chart.TakeSnapshot();
}

}  // namespace morvane
