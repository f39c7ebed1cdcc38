#include "review/LineDiff.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <unordered_map>

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

/// So many lines show that stayed, before and behind one that didn't.
constexpr std::size_t kContext = 2;

struct Step {
  char sign = ' ';
  std::size_t before = 0;  ///< how many lines of each text stand in front of it
  std::size_t after = 0;
};

/// The shortest way from one row of numbers to another, by diagonals: after so many edits it keeps
/// for each diagonal how far a way comes, until one comes to the end.
class EditPath {
 public:
  EditPath(std::span<const int> before, std::span<const int> after)
      : before(before), after(after) {}

  /// The signs of the steps in their order; all replaced if it would take too many.
  std::string Signs();

 private:
  using Reach = std::vector<int>;  ///< by diagonal, from -edits to edits in twos
  int Advance(int edits, int diagonal) const;
  bool CameToEnd(int x, int diagonal) const;
  std::string TraceBack(int x, int diagonal) const;

  std::span<const int> before;
  std::span<const int> after;
  std::vector<Reach> reaches;
};

/// The farthest place in `before` on a diagonal after so many edits.
int EditPath::Advance(int edits, int diagonal) const {
  int x = 0;
  if (edits > 0) {
    const Reach& former = reaches.back();
    const auto reachOf = [&former, edits](int other) {
      return former[static_cast<std::size_t>((other + edits - 1) / 2)];
    };
    const bool inserts =
        diagonal == -edits || (diagonal != edits && reachOf(diagonal - 1) < reachOf(diagonal + 1));
    x = inserts ? reachOf(diagonal + 1) : reachOf(diagonal - 1) + 1;
  }
  const int last = static_cast<int>(before.size());
  const int lastAfter = static_cast<int>(after.size());
  while (x < last && x - diagonal < lastAfter && x - diagonal >= 0 &&
         before[static_cast<std::size_t>(x)] == after[static_cast<std::size_t>(x - diagonal)]) {
    ++x;
  }
  return x;
}

bool EditPath::CameToEnd(int x, int diagonal) const {
  return x >= static_cast<int>(before.size()) && x - diagonal >= static_cast<int>(after.size());
}

std::string EditPath::Signs() {
  for (int edits = 0; edits <= LineDiff::kMaxEdits; ++edits) {
    Reach reach;
    reach.reserve(static_cast<std::size_t>(edits) + 1);
    for (int diagonal = -edits; diagonal <= edits; diagonal += 2) {
      const int x = Advance(edits, diagonal);
      reach.push_back(x);
      if (CameToEnd(x, diagonal)) return TraceBack(x, diagonal);
    }
    reaches.push_back(std::move(reach));
  }
  return std::string(before.size(), '-') + std::string(after.size(), '+');
}

std::string EditPath::TraceBack(int x, int diagonal) const {
  std::string signs;
  for (int edits = static_cast<int>(reaches.size()); edits > 0; --edits) {
    const Reach& former = reaches[static_cast<std::size_t>(edits - 1)];
    const auto reachOf = [&former, edits](int other) {
      return former[static_cast<std::size_t>((other + edits - 1) / 2)];
    };
    const bool inserts =
        diagonal == -edits || (diagonal != edits && reachOf(diagonal - 1) < reachOf(diagonal + 1));
    diagonal += inserts ? 1 : -1;
    const int start = reachOf(diagonal);
    const int behindEdit = inserts ? start : start + 1;
    signs.append(static_cast<std::size_t>(x - behindEdit), ' ');
    signs += inserts ? '+' : '-';
    x = start;
  }
  signs.append(static_cast<std::size_t>(x), ' ');
  std::ranges::reverse(signs);
  return signs;
}

/// Equal lines get equal numbers, which compare faster.
class LineNumbers {
 public:
  std::vector<int> Of(std::span<const std::string_view> lines) {
    std::vector<int> row;
    row.reserve(lines.size());
    for (const std::string_view line : lines) {
      row.push_back(numbers.try_emplace(line, static_cast<int>(numbers.size())).first->second);
    }
    return row;
  }

 private:
  std::unordered_map<std::string_view, int> numbers;
};

std::vector<Step> StepsBetween(std::span<const std::string_view> before,
                               std::span<const std::string_view> after) {
  const auto differ = std::ranges::mismatch(before, after);
  const auto same = static_cast<std::size_t>(differ.in1 - before.begin());
  const std::size_t room = std::min(before.size(), after.size()) - same;
  std::size_t sameEnd = 0;
  while (sameEnd < room && before[before.size() - 1 - sameEnd] == after[after.size() - 1 - sameEnd])
    ++sameEnd;
  LineNumbers numbers;
  const std::vector<int> from = numbers.Of(before.subspan(same, before.size() - same - sameEnd));
  const std::vector<int> to = numbers.Of(after.subspan(same, after.size() - same - sameEnd));
  const std::string signs =
      std::string(same, ' ') + EditPath(from, to).Signs() + std::string(sameEnd, ' ');
  std::vector<Step> steps;
  steps.reserve(signs.size());
  Step next;
  for (const char sign : signs) {
    next.sign = sign;
    steps.push_back(next);
    if (sign != '+') ++next.before;
    if (sign != '-') ++next.after;
  }
  return steps;
}

/// The steps that show: those that change something, with the few around them.
std::vector<bool> ShownSteps(std::span<const Step> steps) {
  std::vector<bool> shown(steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (steps[i].sign == ' ') continue;
    const std::size_t end = std::min(i + kContext + 1, steps.size());
    for (std::size_t near = i - std::min(i, kContext); near < end; ++near) shown[near] = true;
  }
  return shown;
}

}  // namespace

std::vector<std::string_view> LineDiff::Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  if (text.empty()) return lines;
  for (;;) {
    const std::size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + 1);
  }
}

std::string LineDiff::Readable(std::string_view line) {
  constexpr unsigned char firstPrintable = 0x20;
  constexpr unsigned char deleted = 0x7F;
  std::string readable;
  for (const char c : ToUtf8(line)) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isControl = (byte < firstPrintable && c != '\t') || byte == deleted;
    if (isControl) readable += '^';
    readable += isControl ? static_cast<char>(byte ^ 0x40U) : c;
  }
  return readable;
}

std::vector<std::string> LineDiff::Listing(std::string_view before, std::string_view after) {
  const std::vector<std::string_view> from = Lines(before);
  const std::vector<std::string_view> to = Lines(after);
  const std::vector<Step> steps = StepsBetween(from, to);
  const std::vector<bool> shown = ShownSteps(steps);
  std::vector<std::string> listing;
  bool leftOut = false;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (!shown[i]) {
      leftOut = true;
      continue;
    }
    const Step& step = steps[i];
    if (leftOut) {
      listing.push_back("@@ -" + std::to_string(step.before + 1) + " +" +
                        std::to_string(step.after + 1) + " @@");
    }
    leftOut = false;
    listing.push_back(step.sign + Readable(step.sign == '+' ? to[step.after] : from[step.before]));
  }
  return listing;
}

}  // namespace morvane
