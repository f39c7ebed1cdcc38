#include "machine/TransitionBuilder.h"

#include <algorithm>
#include <utility>

#include "machine/ChartIndex.h"
#include "machine/DrawnChart.h"
#include "machine/EventList.h"
#include "machine/Identifier.h"
#include "machine/ProblemList.h"
#include "machine/StateTree.h"
#include "machine/TextCheck.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = DrawnObject::Kind;

}  // namespace

TransitionBuilder::TransitionBuilder(const DrawnChart& chart, const ChartIndex& index,
                                     const StateTree& tree, Structure& structure,
                                     ProblemList& problems)
    : chart(chart), index(index), tree(tree), structure(structure), problems(problems) {}

void TransitionBuilder::Build() {
  TakeMessages();
  std::vector<const DrawnTransition*> byId;
  for (const DrawnTransition& drawn : chart.transitions) byId.push_back(&drawn);
  std::ranges::sort(byId, {}, &DrawnTransition::id);
  for (const DrawnTransition* drawn : byId) {
    if (CheckEnds(*drawn)) Add(*drawn);
  }
  for (const DrawnState& mark : chart.states) {
    if (mark.kind != Kind::InitialMark || fromMark.contains(mark.id)) continue;
    if (tree.MarkIn(tree.LevelOf(mark)) == &mark) problems.Error(mark, Said("has no transition"));
  }
}

void TransitionBuilder::TakeMessages() {
  for (const DrawnMessage& message : chart.messages) {
    const DrawnObject* named = index.Find(message.transitionId);
    if (named == nullptr || named->kind != Kind::Transition) {
      problems.Warning(message, Said("belongs to no transition"));
      problems.SetRemedy(Problem::Remedy::DeleteMessage);
      continue;
    }
    const auto [first, isNew] = messages.emplace(named->id, &message);
    if (isNew) continue;
    problems.Error(message, Said("is a second message of %1 beside %2",
                                 {named->Name(), first->second->Name()}));
  }
}

/// Both ends of an arrow that can be a transition stand at objects of the right kind.
bool TransitionBuilder::CheckEnds(const DrawnTransition& drawn) {
  const DrawnObject* source = index.Find(drawn.sourceId);
  const DrawnObject* target = index.Find(drawn.targetId);
  if (source != nullptr && source->kind == Kind::InitialMark) {
    const auto [first, isNew] = fromMark.emplace(source->id, &drawn);
    if (!isNew) {
      problems.Error(drawn, Said("is a second one from %1 beside %2",
                                 {source->Name(), first->second->Name()}));
      return false;
    }
  }
  if (source == nullptr && target == nullptr) {
    problems.Error(drawn, Said("begins and ends at no state"));
    problems.SetRemedy(Problem::Remedy::AttachEnds);
    return false;
  }
  const bool begins =
      source != nullptr && (source->kind == Kind::State || source->kind == Kind::InitialMark);
  const bool ends =
      target != nullptr && (target->kind == Kind::State || target->kind == Kind::FinalMark);
  if (!begins) {
    problems.Error(drawn, source == nullptr ? Said("begins at no state")
                                            : Said("can't begin at %1", {source->Name()}));
    if (source == nullptr) problems.SetRemedy(Problem::Remedy::AttachEnds);
  }
  if (!ends) {
    problems.Error(drawn, target == nullptr ? Said("ends at no state")
                                            : Said("can't end at %1", {target->Name()}));
    if (target == nullptr) problems.SetRemedy(Problem::Remedy::AttachEnds);
  }
  return begins && ends;
}

void TransitionBuilder::Add(const DrawnTransition& drawn) {
  const auto* source = static_cast<const DrawnState*>(index.Find(drawn.sourceId));
  const auto* target = static_cast<const DrawnState*>(index.Find(drawn.targetId));
  const DrawnState* mark = source->kind == Kind::InitialMark ? source : nullptr;
  MachineTransition made;
  made.id = drawn.id;
  made.line = drawn.line;
  made.isInitial = mark != nullptr;
  made.source = mark != nullptr ? tree.LevelOf(*mark) : tree.StateOf(*source);
  made.target = tree.StateOf(*target);
  const auto message = messages.find(drawn.id);
  const bool isSound = message == messages.end() || TakeTexts(*message->second, mark, made);
  if (mark != nullptr) return AddInitial(drawn, *mark, std::move(made));
  FindPath(made);
  const auto place = static_cast<int>(structure.machine.transitions.size());
  // With its events at fault it can't be compared with others.
  if (isSound) structure.machine.states[made.source].outgoing.push_back(place);
  structure.machine.transitions.push_back(std::move(made));
  structure.drawnTransitions.push_back(&drawn);
}

void TransitionBuilder::AddInitial(const DrawnTransition& drawn, const DrawnState& mark,
                                   MachineTransition made) {
  if (!tree.Holds(made.source, made.target)) {
    problems.Error(drawn, Said("begins at %1 and has to end inside %2",
                               {mark.Name(), structure.drawnStates[made.source]->Name()}));
    return;
  }
  FindPath(made);
  Machine& machine = structure.machine;
  if (tree.MarkIn(made.source) == &mark) {
    int& initial =
        made.source == MachineState::kChart ? machine.initial : machine.states[made.source].initial;
    initial = static_cast<int>(machine.transitions.size());
  }
  machine.transitions.push_back(std::move(made));
  structure.drawnTransitions.push_back(&drawn);
}

/// False if the events are at fault.
bool TransitionBuilder::TakeTexts(const DrawnMessage& message, const DrawnState* mark,
                                  MachineTransition& made) {
  bool isSound = true;
  made.messageId = message.id;
  if (mark != nullptr) {
    RefuseTrigger(message, *mark);
  } else {
    isSound = TakeEvents(message, made);
    made.guard = message.guard;
    CheckText(message, message.guard, Translate("guard"), problems);
  }
  made.effect = message.effect;
  CheckText(message, message.effect, Translate("effect"), problems);
  return isSound;
}

void TransitionBuilder::RefuseTrigger(const DrawnMessage& message, const DrawnState& mark) {
  if (!EventList::Parse(message.event.text).names.empty()) {
    problems.Error(message, Said("can't have an event on a transition from %1", {mark.Name()}),
                   message.event.line);
  }
  if (!message.guard.IsEmpty()) {
    problems.Error(message, Said("can't have a guard on a transition from %1", {mark.Name()}),
                   message.guard.line);
  }
}

bool TransitionBuilder::TakeEvents(const DrawnMessage& message, MachineTransition& made) {
  const EventList list = EventList::Parse(message.event.text);
  const int line = message.event.line;
  if (list.isUntouched) {
    problems.Error(message, Said("still has \"-Edit-\" for its event"), line);
    return false;
  }
  if (std::ranges::find(list.names, std::string()) != list.names.end()) {
    problems.Error(message, Said("has a comma too many between its events"), line);
    return false;
  }
  const auto bad = std::ranges::find_if_not(list.names, Identifier::IsAlmostSound);
  if (bad != list.names.end()) {
    problems.Error(message, Said("has the event \"%1\", which is no identifier", {*bad}), line);
    return false;
  }
  for (const std::string& name : list.names) {
    const int event = EventOf(name, message);
    if (std::ranges::find(made.events, event) == made.events.end()) {
      made.events.push_back(event);
    } else {
      problems.Warning(message, Said("has the event \"%1\" twice", {name}), line);
    }
  }
  return true;
}

int TransitionBuilder::EventOf(const std::string& name, const DrawnMessage& message) {
  std::vector<MachineEvent>& known = structure.machine.events;
  const auto [found, isNew] = events.emplace(name, static_cast<int>(known.size()));
  if (isNew) {
    known.push_back({name, {}});
    structure.namedBy.push_back(&message);
  }
  return found->second;
}

/// The innermost state that is neither left nor entered, and the way down from it.
void TransitionBuilder::FindPath(MachineTransition& made) const {
  const std::vector<MachineState>& states = structure.machine.states;
  made.scope = made.isInitial ? made.source : states[made.source].parent;
  while (!tree.Holds(made.scope, made.target)) made.scope = states[made.scope].parent;
  for (int at = made.target; at != made.scope; at = states[at].parent) made.entered.push_back(at);
  std::ranges::reverse(made.entered);
}

}  // namespace morvane
