#include "exchange/ScxmlStates.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "machine/Identifier.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = ScxmlState::Kind;

constexpr int kRoot = ScxmlState::kRoot;

/// A title counts if the state's id is what becomes of it in code.
std::string TitleOf(const ScxmlState& state) {
  const bool isTitled = !state.title.empty() && Identifier::Clean(state.title, 'S') == state.id;
  return isTitled ? state.title : state.id;
}

/// The number of the object that the name of a final state ends with where another state has the
/// plain name.
std::int32_t NumberOf(const std::string& id) {
  constexpr std::string_view word = "Final_";
  const std::size_t at = id.rfind(word);
  std::int32_t number = 0;
  if (at == std::string::npos) return 0;
  const char* end = id.data() + id.size();
  const auto read = std::from_chars(id.data() + at + word.size(), end, number);
  return read.ec == std::errc() && read.ptr == end ? number : 0;
}

}  // namespace

ScxmlStates::ScxmlStates(const ScxmlDocument& document, ImportedChart& chart)
    : document(document),
      chart(chart),
      places(document.states.size(), kNone),
      beginnings(document.states.size()) {
  NameStates();
  FindFirst();
  AddStates();
  FindBeginnings();
  FindHistories();
  AddInitials();
}

void ScxmlStates::Remark(int line, std::string text, std::string kept) {
  chart.remarks.push_back({line, std::move(text), std::move(kept)});
}

void ScxmlStates::NameStates() {
  for (int i = 0; i < std::ssize(document.states); ++i) {
    const ScxmlState& state = document.states[i];
    if (state.id.empty()) continue;
    const auto [first, isNew] = byId.emplace(state.id, i);
    if (isNew) continue;
    Remark(state.line, Said("The id \"%1\" is given a second time, first in line %2, which is what "
                            "transitions lead to",
                            {state.id, std::to_string(document.states[first->second].line)}));
  }
}

int ScxmlStates::Find(const std::string& id) const {
  const auto found = byId.find(id);
  return found == byId.end() ? kNone : found->second;
}

bool ScxmlStates::IsTarget(const std::string& id) const {
  return std::ranges::any_of(document.transitions, [&id](const ScxmlTransition& transition) {
    return std::ranges::find(transition.targets, id) != transition.targets.end();
  });
}

/// Documents of this program begin with a state of that kind where the first transition has an
/// effect.
void ScxmlStates::FindFirst() {
  if (document.initial.size() != 1) return;
  const int first = Find(document.initial.front());
  if (first == kNone) return;
  const ScxmlState& state = document.states[first];
  const bool isPlain = state.kind == Kind::State && state.parent == kRoot &&
                       state.children.empty() && state.entry.empty() && state.exit.empty();
  if (!isPlain || IsTarget(state.id)) return;
  const ScxmlTransition* only = nullptr;
  for (const ScxmlTransition& transition : document.transitions) {
    if (transition.source != first) continue;
    if (only != nullptr) return;
    only = &transition;
  }
  const bool leads = only != nullptr && only->events.empty() && only->cond.empty() &&
                     only->targets.size() == 1 && Find(only->targets.front()) != kNone;
  if (!leads) return;
  firstState = first;
  ofChart = {Find(only->targets.front()), only->effect, only->traceId};
}

void ScxmlStates::AddStates() {
  for (int i = 0; i < std::ssize(document.states); ++i) {
    const ScxmlState& state = document.states[i];
    const bool isLost = state.parent != kRoot && places[state.parent] == kNone;
    if (state.kind == Kind::History || i == firstState || isLost) continue;
    ImportedState made;
    made.isFinal = state.kind == Kind::Final && state.children.empty();
    if (made.isFinal) made.wantedId = NumberOf(state.id);
    made.holder = state.parent == kRoot ? ImportedState::kChart : places[state.parent];
    made.title = TitleOf(state);
    made.entry = state.entry;
    made.exit = state.exit;
    places[i] = static_cast<int>(chart.states.size());
    chart.states.push_back(std::move(made));
  }
}

bool ScxmlStates::IsInside(int state, int outer) const {
  if (outer == kRoot) return true;
  for (int at = document.states[state].parent; at != kRoot; at = document.states[at].parent) {
    if (at == outer) return true;
  }
  return false;
}

/// The state that an `initial` names, as far as it lies in its level.
int ScxmlStates::Wanted(const std::vector<std::string>& ids, int line, int level) {
  if (ids.empty()) return kNone;
  if (ids.size() > 1) {
    Remark(line, Said("Of several states to begin with, \"%1\" is taken", {ids.front()}));
  }
  const int found = Find(ids.front());
  if (found != kNone && IsInside(found, level)) return found;
  Remark(line, Said("\"%1\", to begin with, is no state here", {ids.front()}));
  return kNone;
}

ScxmlStates::Beginning ScxmlStates::BeginningOf(int level) {
  const ScxmlState& state = document.states[level];
  Beginning beginning;
  beginning.target = Wanted(state.initial, state.line, level);
  if (state.beginning && state.kind != Kind::History) {
    const int target = Wanted(state.beginning->targets, state.beginning->line, level);
    if (target != kNone) beginning = {target, state.beginning->effect, state.beginning->traceId};
  }
  if (beginning.target == kNone) beginning.target = state.children.front();
  return beginning;
}

void ScxmlStates::FindBeginnings() {
  if (firstState == kNone) {
    ofChart.target = Wanted(document.initial, 1, kRoot);
    if (ofChart.target == kNone && !document.outermost.empty()) {
      ofChart.target = document.outermost.front();
    }
  }
  for (int i = 0; i < std::ssize(document.states); ++i) {
    if (IsComposite(i)) beginnings[i] = BeginningOf(i);
  }
}

/// A composite of a chart has a history as a whole: coming to its border is coming to the history.
void ScxmlStates::FindHistories() {
  std::vector<bool> entered(document.states.size(), false);   // by their border
  std::vector<bool> recalled(document.states.size(), false);  // histories that something leads to
  const auto note = [&](int target) {
    if (target == kNone) return;
    (document.states[target].kind == Kind::History ? recalled : entered)[target] = true;
  };
  note(ofChart.target);
  for (const Beginning& beginning : beginnings) note(beginning.target);
  for (const ScxmlTransition& transition : document.transitions) {
    if (!transition.targets.empty()) note(Find(transition.targets.front()));
  }
  for (int i = 0; i < std::ssize(document.states); ++i) {
    if (document.states[i].kind == Kind::History) TakeHistory(i, entered, recalled);
  }
}

void ScxmlStates::TakeHistory(int history, const std::vector<bool>& entered,
                              const std::vector<bool>& recalled) {
  const ScxmlState& state = document.states[history];
  const int holder = state.parent;
  if (!recalled[history] || !IsComposite(holder) || places[holder] == kNone) return;
  if (state.isDeep) Remark(state.line, Said("A deep history is taken for one of direct children"));
  Beginning& own = beginnings[holder];
  const bool leadsThere = own.target == history;
  ImportedState& made = chart.states[places[holder]];
  if (made.history) {
    Remark(state.line, Said("A second history of one state is taken for the first one"));
    return;
  }
  if (!leadsThere && entered[holder]) {
    Remark(state.line,
           Said("A history of a chart counts whenever its state is entered at the border"));
  }
  made.history = true;
  Beginning first;
  if (state.beginning) {
    first = {Wanted(state.beginning->targets, state.beginning->line, holder),
             state.beginning->effect, state.beginning->traceId};
  }
  if (first.target == kNone || first.target == history) {
    first = leadsThere ? Beginning{document.states[holder].children.front(), {}, 0} : own;
  }
  own = first;
}

int ScxmlStates::TargetOf(const ScxmlTransition& transition) {
  const std::string& id = transition.targets.front();
  if (transition.targets.size() > 1) {
    Remark(transition.line, Said("Of several targets, \"%1\" is taken", {id}));
  }
  const int found = Find(id);
  if (found == kNone) {
    Remark(transition.line, Said("There is no state \"%1\" for a transition to end at", {id}));
    return kNone;
  }
  const bool isHistory = document.states[found].kind == Kind::History;
  return places[isHistory ? document.states[found].parent : found];
}

void ScxmlStates::AddInitials() {
  const auto add = [this](int source, const Beginning& beginning) {
    if (beginning.target == kNone) return;
    int target = beginning.target;
    if (document.states[target].kind == Kind::History) target = document.states[target].parent;
    ImportedTransition made;
    made.wantedId = beginning.traceId;
    made.isInitial = true;
    made.source = source;
    made.target = places[target];
    made.effect = beginning.effect;
    if (made.target != kNone && made.target != source) chart.transitions.push_back(std::move(made));
  };
  add(ImportedState::kChart, ofChart);
  for (int i = 0; i < std::ssize(document.states); ++i) {
    if (IsComposite(i) && places[i] != kNone) add(places[i], beginnings[i]);
  }
}

}  // namespace morvane
