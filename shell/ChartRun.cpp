#include "shell/ChartRun.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "machine/MachineBuilder.h"
#include "model/ModelMgr.h"
#include "persistence/CDocument.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenus.h"
#include "resources/Texts.h"
#include "simulation/Coverage.h"
#include "simulation/Replay.h"
#include "simulation/Simulation.h"
#include "states/GenericState.h"
#include "surface/LayoutMgr.h"
#include "surface/RunMarks.h"

namespace morvane {

namespace {

using Json = nlohmann::json;
using Look = RunMarks::Look;

/// The commands of the menu that an object has while the chart runs.
enum MenuCommand : unsigned { kToggleStop = 1, kSend, kEnd };

}  // namespace

ChartRun::ChartRun(LayoutMgr& chart, Callbacks callbacks)
    : chart(chart), callbacks(std::move(callbacks)) {}

ChartRun::~ChartRun() { LetGo(); }

void ChartRun::LetGo() {
  if (std::exchange(isOver, true)) return;
  if (chart.GetWatcher() == this) chart.SetWatcher(nullptr);
}

/// Makes the machine of the chart as it stands.
std::string ChartRun::Build() {
  if (chart.GetModel().Objects().empty()) return Translate("There is nothing on the chart to run");
  chart.FinishTyping();
  BuiltMachine built = MachineBuilder::FromText(*chart.SnapshotText());
  if (!built.machine) {
    const auto error =
        std::ranges::find(built.problems, Problem::Severity::Error, &Problem::severity);
    return WithName(Translate("The chart can't be run: %1"),
                    error != built.problems.end() ? error->message : std::string());
  }
  machine = std::make_unique<Machine>(std::move(*built.machine));
  before = std::make_unique<Coverage>(*machine);
  chart.SetWatcher(this);
  return {};
}

std::string ChartRun::Simulate() {
  std::string reason = Build();
  if (!reason.empty()) return reason;
  auto made =
      std::make_unique<Simulation>(*machine, Service<ScriptEngines>::Get().Start(),
                                   [this](const MachineTransition& transition,
                                          const std::string& why) { return Ask(transition, why); });
  simulation = made.get();
  run = std::move(made);
  simulation->Start();
  Refresh();
  return {};
}

std::string ChartRun::BeginReplay() {
  if (run != nullptr) {
    // The chart is as it was: what was reached so far counts with what comes.
    KeepReached();
  } else if (std::string reason = Build(); !reason.empty()) {
    return reason;
  }
  simulation = nullptr;
  auto made = std::make_unique<Replay>(*machine);
  replay = made.get();
  run = std::move(made);
  return {};
}

void ChartRun::FeedTrace(std::string_view part) {
  if (replay != nullptr) replay->Feed(part);
}

void ChartRun::FinishTrace() {
  if (replay != nullptr) replay->Finish();
}

void ChartRun::CatchUpTrace() {
  if (replay != nullptr) replay->CatchUp();
}

std::string ChartRun::ChartPath() const {
  const CDocument* document = chart.GetDocument();
  return document != nullptr ? document->GetPathName() : std::string();
}

void ChartRun::Restart() {
  KeepReached();
  if (simulation != nullptr) {
    simulation->Start();
  } else {
    run->GoTo(0);
  }
  Refresh();
}

void ChartRun::KeepReached() { before->Add(run->History(), run->History().Size()); }

void ChartRun::Send(int event) {
  if (simulation == nullptr) return;
  // What lies behind the place that is shown is about to be forgotten, but was reached.
  if (!simulation->IsAtEnd()) KeepReached();
  simulation->Send(event);
  Refresh();
}

void ChartRun::GoTo(std::size_t place) {
  run->GoTo(place);
  Refresh();
}

void ChartRun::StepBack() { GoTo(run->Place() > 0 ? run->Place() - 1 : 0); }

void ChartRun::StepForward() { GoTo(run->Place() + 1); }

void ChartRun::Continue() {
  run->Continue();
  Refresh();
}

void ChartRun::ToggleBreakpoint(std::int32_t id) {
  run->ToggleBreakpoint(id);
  Refresh();
}

std::string ChartRun::Assign(const std::string& name, const std::string& expression) {
  if (simulation == nullptr) return {};
  std::string reason = simulation->Assign(name, expression);
  Refresh();
  return reason;
}

void ChartRun::Reveal(std::int32_t id) {
  if (isOver) return;
  if (Shape* shape = chart.GetModel().Find(id)) chart.ScrollIntoView(*shape);
}

std::vector<std::pair<std::string, std::string>> ChartRun::Variables() const {
  std::vector<std::pair<std::string, std::string>> all;
  if (simulation == nullptr) return all;
  const Json known = Json::parse(simulation->Variables(), nullptr, false);
  if (known.is_object()) {
    for (const auto& [name, value] : known.items()) {
      all.emplace_back(name, value.dump(-1, ' ', false, Json::error_handler_t::replace));
    }
  }
  for (const std::string& name : simulation->Inputs()) {
    if (!known.is_object() || !known.contains(name)) all.emplace_back(name, std::string());
  }
  return all;
}

std::string ChartRun::QueueText() const {
  std::string text;
  if (simulation == nullptr) return text;
  for (const int event : simulation->Queue()) {
    text += (text.empty() ? "" : ", ") + machine->events[static_cast<std::size_t>(event)].written;
  }
  return text;
}

Coverage ChartRun::Reached() const {
  Coverage reached = *before;
  reached.Add(run->History(), run->History().Size());
  return reached;
}

void ChartRun::TintUnreached(bool tint) {
  isTinting = tint;
  Refresh();
}

void ChartRun::Refresh() {
  if (isOver) return;
  ShowMarks();
  KeepActiveInSight();
  if (callbacks.changed) callbacks.changed();
}

void ChartRun::ShowMarks() const {
  std::vector<RunMarks::Mark> marks;
  const auto stateId = [this](int state) {
    return machine->states[static_cast<std::size_t>(state)].id;
  };
  const auto transitionId = [this](int transition) {
    return machine->transitions[static_cast<std::size_t>(transition)].id;
  };
  if (isTinting) {
    const Coverage reached = Reached();
    for (const int state : reached.UnreachedStates()) {
      marks.push_back({stateId(state), Look::Unreached});
    }
    for (const int transition : reached.UnreachedTransitions()) {
      marks.push_back({transitionId(transition), Look::Unreached});
    }
  }
  const std::vector<int> active = run->History().ActiveStatesAt(run->Place());
  for (auto state = active.rbegin(); state != active.rend(); ++state) {
    marks.push_back({stateId(*state), *state == active.front() ? Look::Active : Look::Around});
  }
  if (run->Taken() != MachineState::kNone)
    marks.push_back({transitionId(run->Taken()), Look::Taken});
  for (const std::int32_t id : run->Breakpoints()) marks.push_back({id, Look::Stop});
  chart.GetRunMarks().Set(std::move(marks));
}

/// The view follows the run, but stays where it is as long as it can.
void ChartRun::KeepActiveInSight() {
  const int active = run->Active();
  if (active == std::exchange(shownActive, active) || active == MachineState::kChart) return;
  const std::int32_t id = machine->states[static_cast<std::size_t>(active)].id;
  if (const Shape* shape = chart.GetModel().Find(id)) chart.KeepInSight(shape->GetBounds());
}

bool ChartRun::Ask(const MachineTransition& transition, const std::string& reason) {
  Refresh();
  Reveal(transition.id);
  std::string text = WithName(Translate("Does this guard hold?\n\n%1"), transition.guard.text);
  if (!reason.empty()) text += "\n\n(" + reason + ')';
  return ShowMessage(text, MB_YESNO) == MessageAnswer::Yes;
}

int ChartRun::EventOf(const Shape* shape) const {
  const auto* transition = dynamic_cast<const Transition*>(shape);
  if (const auto* message = dynamic_cast<const Mesg*>(shape)) transition = message->GetTransition();
  if (transition == nullptr) return -1;
  const auto found =
      std::ranges::find(machine->transitions, transition->GetId(), &MachineTransition::id);
  const bool hasEvent = found != machine->transitions.end() && !found->events.empty();
  return hasEvent ? found->events.front() : -1;
}

void ChartRun::OnDoubleClick(Shape* shape) {
  if (const int event = EventOf(shape); event >= 0) Send(event);
}

void ChartRun::OnMenu(Shape* shape, POINT screen) {
  const auto* state = dynamic_cast<const GenericState*>(shape);
  const auto* transition = dynamic_cast<const Transition*>(shape);
  const std::int32_t id = state != nullptr        ? state->GetId()
                          : transition != nullptr ? transition->GetId()
                                                  : 0;
  std::vector<PopupMenus::Item> items;
  const int event = simulation != nullptr ? EventOf(shape) : -1;
  if (event >= 0) {
    const std::string& name = machine->events[static_cast<std::size_t>(event)].written;
    items.push_back({kSend, WithName(Translate("&Send %1"), name), CommandState::Enabled(true)});
  }
  if (id != 0) {
    const CommandState stops = CommandState::Checked(run->HasBreakpoint(id));
    items.push_back({kToggleStop, Translate("&Breakpoint"), stops});
  }
  items.push_back({kEnd, Translate("&End Run"), CommandState::Enabled(true)});
  const unsigned chosen = TrackMenu(items, screen);
  if (isOver) return;
  switch (chosen) {
    case kSend: return Send(event);
    case kToggleStop: return ToggleBreakpoint(id);
    case kEnd: return OnReplacing();
    default: return;
  }
}

void ChartRun::OnReplacing() {
  LetGo();
  if (callbacks.ended) callbacks.ended();
}

}  // namespace morvane
