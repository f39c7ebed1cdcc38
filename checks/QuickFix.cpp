#include "checks/QuickFix.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "connectors/Joining.h"
#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "model/Enclosures.h"
#include "model/ModelMgr.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/FreePlace.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

using Remedy = Problem::Remedy;

/// A free end so far from an anchor is meant for it, model units.
constexpr std::int64_t kReach = 12;

template <class Kind>
Kind* Find(const LayoutMgr& chart, std::int32_t id) {
  return dynamic_cast<Kind*>(chart.GetModel().Find(id));
}

std::int64_t SquaredDistance(POINT a, POINT b) {
  const std::int64_t across = std::int64_t{a.x} - b.x;
  const std::int64_t down = std::int64_t{a.y} - b.y;
  return across * across + down * down;
}

/// The state of a kind with the anchor nearest to a free end, within reach.
template <class Kind>
std::optional<std::pair<Kind*, AnchorKey>> NearestAnchor(const LayoutMgr& chart, POINT end) {
  std::optional<std::pair<Kind*, AnchorKey>> nearest;
  std::int64_t best = kReach * kReach + 1;
  for (Shape* shape : chart.GetModel().Objects()) {
    auto* state = dynamic_cast<Kind*>(shape);
    if (state == nullptr) continue;
    for (const AnchorMap::Anchor& anchor : state->GetAnchors()) {
      const std::int64_t distance = SquaredDistance(anchor.point, end);
      if (distance < best) nearest = {state, anchor.key};
      best = std::min(best, distance);
    }
  }
  return nearest;
}

/// The states directly in a state, or in the chart for null, by reading.
std::vector<GenericState*> LevelOf(const LayoutMgr& chart, const GenericState* holder) {
  std::vector<GenericState*> states;
  std::vector<Enclosures::Box> boxes;
  for (Shape* shape : chart.GetModel().Objects()) {
    auto* state = dynamic_cast<GenericState*>(shape);
    if (state == nullptr) continue;
    states.push_back(state);
    boxes.push_back({state->GetBounds(), true});
  }
  const std::vector<int> holders = Enclosures(std::move(boxes)).Holders();
  std::vector<GenericState*> level;
  for (std::size_t i = 0; i < states.size(); ++i) {
    const GenericState* around =
        holders[i] == Enclosures::kNone ? nullptr : states[static_cast<std::size_t>(holders[i])];
    if (around == holder) level.push_back(states[i]);
  }
  std::ranges::stable_sort(level, {}, [](const GenericState* state) {
    return std::pair(state->GetBounds().top, state->GetBounds().left);
  });
  return level;
}

/// The only one that no transition leads to, or else the first one.
GenericState* BeginningOf(const LayoutMgr& chart, const std::vector<GenericState*>& level) {
  std::set<const EndableState*> entered;
  for (const Shape* shape : chart.GetModel().Objects()) {
    const auto* transition = dynamic_cast<const Transition*>(shape);
    if (transition != nullptr) entered.insert(transition->GetTarget());
  }
  const auto isBare = [&](const GenericState* state) { return !entered.contains(state); };
  if (std::ranges::count_if(level, isBare) == 1) return *std::ranges::find_if(level, isBare);
  return level.empty() ? nullptr : level.front();
}

}  // namespace

std::string QuickFix::OfferFor(const Problem& problem) const {
  if (chart.GetWatcher() != nullptr) return {};
  switch (problem.remedy) {
    case Remedy::AddInitialState: return Translate("Add an initial state");
    case Remedy::AttachEnds:
      return CanAttachEnds(problem.id) ? Translate("Attach the free end") : std::string();
    case Remedy::MakeNameUnique: return Translate("Give the state a name of its own");
    case Remedy::DeleteMessage: return Translate("Delete the message");
    case Remedy::None: break;
  }
  return {};
}

bool QuickFix::Apply(const Problem& problem) {
  if (chart.GetWatcher() != nullptr) return false;
  bool done = false;
  switch (problem.remedy) {
    case Remedy::AddInitialState: done = AddInitialState(problem.id); break;
    case Remedy::AttachEnds: done = AttachEnds(problem.id); break;
    case Remedy::MakeNameUnique: done = MakeNameUnique(problem.id); break;
    case Remedy::DeleteMessage: done = DeleteMessage(problem.id); break;
    case Remedy::None: break;
  }
  if (done) chart.TakeSnapshot();
  return done;
}

/// Near the state that it leads to: what else is to be done with it the user sees there.
bool QuickFix::AddInitialState(std::int32_t id) {
  const auto* holder = Find<GenericState>(chart, id);
  if (id != 0 && holder == nullptr) return false;
  GenericState* beginning = BeginningOf(chart, LevelOf(chart, holder));
  if (beginning == nullptr) return false;
  ModelMgr& model = chart.GetModel();
  const RECT size = InitialState::DefaultRect();
  constexpr std::int32_t gap = 8;
  const POINT corner = TopLeft(beginning->GetBounds());
  const POINT above{corner.x, std::max(SubSat(corner.y, gap), 0)};
  constexpr std::int32_t around = 60;
  const RECT all{0, 0, ChartView::kLargestChart, ChartView::kLargestChart};
  const RECT holderArea = holder != nullptr ? holder->GetBounds() : all;
  const RECT area = IntersectRect(holderArea, InflateRect(beginning->GetBounds(), around));
  const std::optional<POINT> place =
      FindFreePlace(model, SIZE{size.right, size.bottom}, area, above, holder);
  if (!place) return false;
  auto made = std::make_unique<InitialState>(model.NextId(), &chart, size + *place);
  InitialState* mark = made.get();
  model.Adopt(std::move(made));
  Join(model, *mark, *beginning, Joint::Transition);
  chart.Reveal({mark});
  return true;
}

bool QuickFix::CanAttachEnds(std::int32_t id) const {
  const auto* transition = Find<Transition>(chart, id);
  if (transition == nullptr) return false;
  const bool source = transition->GetSource() != nullptr ||
                      NearestAnchor<StartableState>(chart, transition->SourceEnd().anchor);
  const bool target = transition->GetTarget() != nullptr ||
                      NearestAnchor<EndableState>(chart, transition->TargetEnd().anchor);
  return source && target;
}

bool QuickFix::AttachEnds(std::int32_t id) {
  if (!CanAttachEnds(id)) return false;
  auto* transition = Find<Transition>(chart, id);
  const auto source = NearestAnchor<StartableState>(chart, transition->SourceEnd().anchor);
  const auto target = NearestAnchor<EndableState>(chart, transition->TargetEnd().anchor);
  if (transition->GetSource() == nullptr) transition->AttachSource(source->first, source->second);
  if (transition->GetTarget() == nullptr) transition->AttachTarget(target->first, target->second);
  chart.Reveal({transition});
  return true;
}

bool QuickFix::MakeNameUnique(std::int32_t id) {
  auto* state = Find<GenericState>(chart, id);
  if (state == nullptr) return false;
  std::set<std::string> taken;
  for (const Shape* shape : chart.GetModel().Objects()) {
    const auto* other = dynamic_cast<const GenericState*>(shape);
    if (other != nullptr) taken.insert(other->GetName());
  }
  int number = 2;
  while (taken.contains(state->GetName() + std::to_string(number))) ++number;
  state->NameText() += std::to_string(number);
  state->OnRenamed();
  chart.Reveal({state});
  return true;
}

bool QuickFix::DeleteMessage(std::int32_t id) {
  auto* message = Find<Mesg>(chart, id);
  if (message == nullptr || message->GetTransition() != nullptr) return false;
  message->Invalidate();
  delete message;
  return true;
}

}  // namespace morvane
