#include "simulation/Replay.h"

#include <algorithm>
#include <array>

#include "machine/Machine.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = TraceLine::Kind;

/// No line of a trace is longer.
constexpr std::size_t kLongestLine = 4096;
constexpr std::string_view kBlanks = " \t\r";

/// It has the form of a line of a trace, of whatever chart.
bool LooksLikeTrace(std::string_view text) {
  constexpr std::array<std::string_view, 5> words{"event ", "exit ", "take ", "enter ", "ignored "};
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  const std::string_view line = text.substr(begin);
  const auto* word =
      std::ranges::find_if(words, [line](std::string_view each) { return line.starts_with(each); });
  if (word == words.end()) return false;
  const std::size_t end = line.find_last_not_of(kBlanks) + 1;
  const std::string_view name =
      line.substr(word->size(), std::max(end, word->size()) - word->size());
  return !name.empty() && name.find_first_of(kBlanks) == std::string_view::npos;
}

}  // namespace

Replay::Replay(const Machine& machine) : Run(machine), interpreter(machine, *this) {
  before = interpreter.Where();
}

void Replay::Feed(std::string_view part) {
  while (!part.empty()) {
    const std::size_t end = part.find('\n');
    const std::string_view piece = part.substr(0, end);
    if (rest.size() + piece.size() > kLongestLine) isDropped = true;
    if (!isDropped) rest += piece;
    if (end == std::string_view::npos) return;
    ++textLine;
    if (!isDropped) TakeLine(rest);
    isDropped = false;
    rest.clear();
    part.remove_prefix(end + 1);
  }
}

void Replay::CatchUp() { Follow(nullptr); }

void Replay::Finish() {
  if (!rest.empty()) {
    ++textLine;
    TakeLine(rest);
    rest.clear();
  }
  CatchUp();
}

bool Replay::IsStart(const TraceLine& line) const {
  return line.kind == Kind::Take && line.of == TheMachine().initial;
}

void Replay::TakeLine(std::string_view text) {
  if (!LooksLikeTrace(text)) return;
  if (const std::optional<TraceLine> line = Format().Parse(text)) return Take(*line);
  if (parting) return;
  Follow(nullptr);
  if (parting) return;
  const std::size_t begin = text.find_first_not_of(kBlanks);
  const std::size_t end = text.find_last_not_of(kBlanks);
  parting = Parting{
      textLine, History().Size(), std::string(text.substr(begin, end - begin + 1)), {}, true};
  AddNote(Said("here the trace has what this chart doesn't know"));
}

void Replay::Take(const TraceLine& line) {
  if (parting) return Add(line);
  if (line.kind == Kind::Event || IsStart(line)) {
    const Wanted next{line, textLine};
    Follow(&next);
    if (parting) return Add(line);
    wanted.clear();
    before = interpreter.Where();
    linesBefore = History().Size();
  }
  wanted.push_back({line, textLine});
}

/// Has the chart do the step at hand anew, which may have grown, and compares.
void Replay::Follow(const Wanted* next) {
  if (parting || wanted.empty()) return;
  const std::size_t shown = Place();
  CutTo(linesBefore);
  interpreter.Return(before);
  followed = 0;
  isBeyond = false;
  following = next;
  const TraceLine first = wanted.front().line;
  if (first.kind == Kind::Event) {
    interpreter.Dispatch(first.of);
  } else {
    interpreter.Start();
  }
  if (isBeyond) {
    for (; followed < wanted.size(); ++followed) Add(wanted[followed].line);
  } else if (!parting && followed < wanted.size()) {
    Part(followed, Format().Text(wanted[followed].line), {});
  }
  following = nullptr;
  GoTo(shown);
}

/// The trace goes on with its own lines.
void Replay::Part(std::size_t at, std::string found, std::string expected) {
  const std::size_t line = at < wanted.size() ? wanted[at].textLine : textLine;
  parting = Parting{line, History().Size(), std::move(found), std::move(expected)};
  for (std::size_t i = at; i < wanted.size(); ++i) Add(wanted[i].line);
}

void Replay::Trace(std::string_view kind, std::string_view name) {
  if (parting || isBeyond) return;
  const std::optional<TraceLine> line = Format().Parse(kind, name);
  if (!line) return;
  if (followed < wanted.size() && wanted[followed].line == *line) {
    Add(*line);
    ++followed;
  } else if (followed < wanted.size()) {
    Part(followed, Format().Text(wanted[followed].line), Format().Text(*line));
  } else if (following != nullptr) {
    Part(followed, Format().Text(following->line), Format().Text(*line));
  } else {
    // A trace may end anywhere: the program was stopped, or has not gone on yet.
    isBeyond = true;
  }
}

/// It holds if the trace takes this transition next. As long as it doesn't tell, nothing behind can
/// be compared.
bool Replay::Holds(const MachineTransition& transition) {
  std::size_t at = followed;
  while (at < wanted.size() && wanted[at].line.kind == Kind::Exit) ++at;
  if (at == wanted.size() && following == nullptr) isBeyond = true;
  const auto index = static_cast<int>(&transition - TheMachine().transitions.data());
  return at < wanted.size() && wanted[at].line == TraceLine{Kind::Take, index};
}

std::string Replay::PartingText() const {
  if (!parting) return {};
  const std::string line = std::to_string(parting->textLine);
  const std::string& found = parting->found;
  if (parting->isUnknown) {
    return Said("line %1: \"%2\", which this chart doesn't have", {line, found});
  }
  if (parting->expected.empty()) {
    return Said("line %1: \"%2\", but the chart does nothing more here", {line, found});
  }
  return Said("line %1: \"%2\", but the chart has \"%3\"", {line, found, parting->expected});
}

}  // namespace morvane
