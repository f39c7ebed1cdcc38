#include "exchange/ScxmlTransitions.h"

#include <algorithm>
#include <utility>

#include "exchange/ScxmlStates.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = ScxmlState::Kind;

constexpr int kNone = ScxmlStates::kNone;
/// "Any event" is all of them, as long as those are so few.
constexpr std::size_t kMostOfAny = 500;

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

/// A transition for a person to read.
std::string Shown(const ScxmlTransition& transition, const ScxmlState& source) {
  std::string text = source.id + " -> " + Joined(transition.targets);
  if (!transition.events.empty()) text += " on " + Joined(transition.events);
  if (!transition.cond.empty()) text += " [" + transition.cond + ']';
  if (!transition.effect.empty()) text += "\n/" + transition.effect;
  return text;
}

}  // namespace

ScxmlTransitions::ScxmlTransitions(const ScxmlDocument& document, ScxmlStates& states,
                                   ImportedChart& chart)
    : document(document),
      states(states),
      chart(chart),
      names(document),
      withTraceIds(KeepsTraceIds()),
      taken(document.states.size()) {}

/// Numbers from a trace become those of the objects if they keep the order of the document, by
/// which transitions are tried.
bool ScxmlTransitions::KeepsTraceIds() const {
  std::set<int> all;
  std::vector<int> last(document.states.size(), 0);
  for (const ScxmlTransition& transition : document.transitions) {
    if (transition.traceId <= 0 || !all.insert(transition.traceId).second) return false;
    if (transition.cond.empty()) continue;
    if (transition.traceId < std::exchange(last[transition.source], transition.traceId)) {
      return false;
    }
  }
  return true;
}

void ScxmlTransitions::Add() {
  for (ImportedTransition& initial : chart.transitions) {
    if (!withTraceIds) initial.wantedId = 0;
  }
  for (const ScxmlTransition& transition : document.transitions) {
    const bool isLost = states.PlaceOf(transition.source) == kNone;
    if (!isLost && !states.IsBeginning(transition)) AddOne(transition);
  }
}

void ScxmlTransitions::Refuse(const ScxmlTransition& transition, const std::string& why) {
  states.Remark(transition.line, why, Shown(transition, document.states[transition.source]));
}

void ScxmlTransitions::AddOne(const ScxmlTransition& transition) {
  const ScxmlState& source = document.states[transition.source];
  if (source.kind == Kind::Final) {
    return Refuse(transition, Said("A final state of a chart has no transitions"));
  }
  Trigger trigger = TriggerOf(transition);
  DropTaken(transition, trigger);
  if (trigger.events.empty() && !trigger.completes) return;
  const int target = TargetOf(transition);
  if (target == kNone) return;
  if (transition.isInternal && states.IsComposite(transition.source)) {
    states.Remark(transition.line, Said("An internal transition leaves its state in a chart"));
  }
  if (trigger.completes) Make(transition, target, {});
  if (!trigger.events.empty()) Make(transition, target, trigger.events);
}

/// Without a target nothing is left and nothing entered. That is the same as going back to a state
/// where nothing happens on the way.
int ScxmlTransitions::TargetOf(const ScxmlTransition& transition) {
  if (!transition.targets.empty()) {
    const int target = states.TargetOf(transition);
    if (target == kNone)
      chart.remarks.back().kept = Shown(transition, document.states[transition.source]);
    return target;
  }
  const ScxmlState& source = document.states[transition.source];
  const bool isQuiet = source.entry.empty() && source.exit.empty() && source.children.empty();
  if (isQuiet && !transition.events.empty()) return states.PlaceOf(transition.source);
  Refuse(transition, Said("A transition of a chart has a target"));
  return kNone;
}

ScxmlTransitions::Trigger ScxmlTransitions::TriggerOf(const ScxmlTransition& transition) {
  const ScxmlState& source = document.states[transition.source];
  const bool isComposite = states.IsComposite(transition.source);
  Trigger trigger;
  if (transition.events.empty()) {
    if (isComposite) {
      Refuse(transition,
             Said("A composite of a chart has no transitions that are tried at any time"));
    }
    trigger.completes = !isComposite;
    return trigger;
  }
  for (const std::string& descriptor : transition.events) {
    if (isComposite && descriptor == "done.state." + source.id) {
      trigger.completes = true;
    } else if (EventNames::IsDone(descriptor)) {
      Refuse(transition,
             Said("Only the state itself can tell that it is complete: %1", {descriptor}));
    } else {
      const std::vector<std::string> matching = names.Matching(descriptor);
      const bool isAny = EventNames::IsAny(descriptor);
      if (isAny) {
        const bool isTooMuch = matching.size() > kMostOfAny || matching.empty();
        Refuse(transition, isTooMuch
                               ? Said("There is no transition for any event in a chart")
                               : Said("Any event is taken for those that the document names"));
        if (isTooMuch) continue;
      }
      trigger.events.insert(trigger.events.end(), matching.begin(), matching.end());
    }
  }
  return trigger;
}

/// A transition without a guard, which stands before others in a document, would come last.
void ScxmlTransitions::DropTaken(const ScxmlTransition& transition, Trigger& trigger) {
  std::set<std::string>& before = taken[transition.source];
  const bool wanted = trigger.completes || !trigger.events.empty();
  if (before.contains("")) trigger.completes = false;
  std::vector<std::string> events;
  for (const std::string& event : trigger.events) {
    const bool isNew = std::ranges::find(events, event) == events.end();
    if (isNew && !before.contains(event)) events.push_back(event);
  }
  trigger.events = std::move(events);
  const bool isLeft = trigger.completes || !trigger.events.empty();
  if (wanted && !isLeft) Refuse(transition, Said("Earlier transitions leave nothing for this one"));
  if (!transition.cond.empty()) return;
  before.insert(trigger.events.begin(), trigger.events.end());
  if (trigger.completes) before.insert("");
}

void ScxmlTransitions::Make(const ScxmlTransition& transition, int target,
                            const std::vector<std::string>& events) {
  ImportedTransition made;
  if (withTraceIds) made.wantedId = transition.traceId;
  made.source = states.PlaceOf(transition.source);
  made.target = target;
  for (const std::string& event : events) made.events.push_back(EventNames::Written(event));
  made.guard = transition.cond;
  made.effect = transition.effect;
  chart.transitions.push_back(std::move(made));
}

}  // namespace morvane
